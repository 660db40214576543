#include "text/HighlightPainting.h"

#include <QSet>
#include <algorithm>

namespace painting {

namespace {

void addClipped(QVector<Stroke>& strokes, int start, int end, int blockStart, int blockEnd,
                const QColor& color) {
    const int from = std::max(start, blockStart);
    const int to = std::min(end, blockEnd);
    if (from < to)
        strokes.append({from - blockStart, to - from, color});
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

QVector<Stroke> strokesForBlock(const QList<Highlight>& highlights, const QList<QPair<int, int>>& overlaps,
                                const Highlight& current, int blockStart, int blockEnd) {
    QVector<Stroke> strokes;
    for (const Highlight& highlight : highlights) {
        if (highlight.overlapping() || highlight.end() <= blockStart)
            continue;
        if (highlight.start() >= blockEnd)
            break;
        addClipped(strokes, highlight.start(), highlight.end(), blockStart, blockEnd, highlight.color());
    }
    for (const QPair<int, int>& range : overlaps)
        addClipped(strokes, range.first, range.second, blockStart, blockEnd, overlapColor());
    if (current.isValid())
        addClipped(strokes, current.start(), current.end(), blockStart, blockEnd, current.color());
    return strokes;
}

}  // namespace painting
