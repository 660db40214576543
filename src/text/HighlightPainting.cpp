#include "text/HighlightPainting.h"

#include <QSet>
#include <algorithm>
#include <tuple>

namespace painting {

namespace {

void addClipped(QVector<Stroke>& strokes, int start, int end, int blockStart, int blockEnd,
                const QColor& color) {
    const int from = std::max(start, blockStart);
    const int to = std::min(end, blockEnd);
    if (from < to)
        strokes.append({from - blockStart, to - from, color});
}

bool comesBefore(const Stretch& a, const Stretch& b) {
    return std::tie(a.range, a.background) < std::tie(b.range, b.background);
}

}  // namespace

QColor overlapColor() {
    return QColor(0x37, 0x56, 0x87);
}

QList<QPair<int, int>> markOverlaps(QList<Highlight>& highlights) {
    if (highlights.isEmpty())
        return {};
    QSet<QPair<int, int>> found;
    highlights[0].setOverlapping(false);
    QPair<int, int> range(highlights[0].start(), highlights[0].end());
    for (int i = 1; i < highlights.size(); ++i) {
        Highlight& highlight = highlights[i];
        if (highlight.start() >= range.second || highlight.end() <= range.first) {
            highlight.setOverlapping(false);
            range = {highlight.start(), highlight.end()};
        } else {
            highlights[i - 1].setOverlapping(true);
            highlight.setOverlapping(true);
            range.second = std::max(range.second, highlight.end());
            found.insert(range);
        }
    }
    return found.values();
}

Layers layersOf(const QList<Highlight>& highlights, const QList<QPair<int, int>>& overlaps) {
    Layers layers;
    std::copy_if(highlights.cbegin(), highlights.cend(), std::back_inserter(layers.alone),
                 [](const Highlight& highlight) { return !highlight.overlapping(); });
    QVector<QPair<int, int>> sorted = overlaps.toVector();
    std::sort(sorted.begin(), sorted.end());
    for (const QPair<int, int>& range : qAsConst(sorted)) {
        if (!layers.overlaps.isEmpty() && range.first < layers.overlaps.last().second)
            layers.overlaps.last().second = std::max(layers.overlaps.last().second, range.second);
        else
            layers.overlaps.append(range);
    }
    return layers;
}

QVector<Stretch> stretchesOf(const Layers& layers) {
    QVector<Stretch> stretches;
    stretches.reserve(layers.alone.size() + layers.overlaps.size());
    for (const Highlight& highlight : layers.alone)
        stretches.append({{highlight.start(), highlight.end()}, highlight.color().rgba()});
    for (const QPair<int, int>& overlap : layers.overlaps)
        stretches.append({overlap, overlapColor().rgba()});
    return stretches;
}

QVector<QPair<int, int>> differences(QVector<Stretch> before, QVector<Stretch> after) {
    std::sort(before.begin(), before.end(), comesBefore);
    std::sort(after.begin(), after.end(), comesBefore);
    QVector<Stretch> different;
    std::set_symmetric_difference(before.cbegin(), before.cend(), after.cbegin(), after.cend(),
                                  std::back_inserter(different), comesBefore);
    QVector<QPair<int, int>> ranges;
    for (const Stretch& stretch : qAsConst(different))
        ranges.append(stretch.range);
    return ranges;
}

QVector<Stroke> strokesForBlock(const Layers& layers, const Highlight& current, int blockStart,
                                int blockEnd) {
    QVector<Stroke> strokes;
    auto highlight = std::partition_point(layers.alone.cbegin(), layers.alone.cend(),
                                          [blockStart](const Highlight& h) { return h.end() <= blockStart; });
    for (; highlight != layers.alone.cend() && highlight->start() < blockEnd; ++highlight)
        addClipped(strokes, highlight->start(), highlight->end(), blockStart, blockEnd, highlight->color());
    auto range = std::partition_point(
        layers.overlaps.cbegin(), layers.overlaps.cend(),
        [blockStart](const QPair<int, int>& overlap) { return overlap.second <= blockStart; });
    for (; range != layers.overlaps.cend() && range->first < blockEnd; ++range)
        addClipped(strokes, range->first, range->second, blockStart, blockEnd, overlapColor());
    if (current.isValid())
        addClipped(strokes, current.start(), current.end(), blockStart, blockEnd, current.color());
    return strokes;
}

}  // namespace painting
