#include "project/PassageRanges.h"

#include <algorithm>

namespace passages {
namespace {

void addMerged(QList<Range>& ranges, const Range& next) {
    if (!ranges.isEmpty() && next.second >= ranges.last().first && next.first <= ranges.last().second) {
        ranges.last().first = std::min(ranges.last().first, next.first);
        ranges.last().second = std::max(ranges.last().second, next.second);
    } else {
        ranges.append(next);
    }
}

}  // namespace

QList<Range> mergedRanges(const QList<Range>& ranges) {
    QList<Range> merged;
    for (const Range& range : ranges)
        addMerged(merged, range);
    return merged;
}

QList<Range> mergedRanges(const QList<Highlight>& highlights) {
    QList<Range> merged;
    for (const Highlight& highlight : highlights)
        addMerged(merged, {highlight.start(), highlight.end()});
    return merged;
}

QList<Range> overlapRanges(const QList<Highlight>& first, const QList<Highlight>& second) {
    QList<Range> ranges;
    for (const Highlight& a : first) {
        Range range(a.start(), a.end());
        bool overlapping = false;
        for (const Highlight& b : second)
            overlapping = b.extendRange(range) || overlapping;
        if (overlapping)
            ranges.append(range);
    }
    return mergedRanges(ranges);
}

}  // namespace passages
