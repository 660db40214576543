#include "search/CodedRanges.h"

#include <algorithm>

namespace Search {

namespace {

using passages::Range;
using Ranges = QList<Range>;

bool namesKerno(const QList<KernoCriterion>& criteria, int kernoId) {
    return std::any_of(criteria.cbegin(), criteria.cend(),
                       [kernoId](const KernoCriterion& criterion) { return criterion.kernoId == kernoId; });
}

void appendFilled(Ranges& ranges, int start, int end) {
    if (start < end)
        ranges.append({start, end});
}

Ranges intersection(const Ranges& ranges, const Highlight& with) {
    Ranges left;
    for (const Range& range : ranges)
        appendFilled(left, std::max(range.first, with.start()), std::min(range.second, with.end()));
    return left;
}

Ranges difference(const Ranges& ranges, const Highlight& without) {
    Ranges left;
    for (const Range& range : ranges) {
        appendFilled(left, range.first, std::min(range.second, without.start()));
        appendFilled(left, std::max(range.first, without.end()), range.second);
    }
    return left;
}

bool overlap(const Highlight& a, const Highlight& b) {
    return a.start() < b.end() && b.start() < a.end();
}

/// The parts of the highlight at `index` that satisfy all criteria.
Ranges partsOf(int index, const QList<Highlight>& all, const QList<KernoCriterion>& criteria) {
    const Highlight& own = all.at(index);
    Ranges ranges{{own.start(), own.end()}};
    for (const KernoCriterion& criterion : criteria) {
        const bool isOwn = own.kernoId() == criterion.kernoId;
        if (isOwn && criterion.excluded)
            return {};
        bool metByOther = false;
        for (int i = 0; i < all.size() && !ranges.isEmpty(); ++i) {
            const Highlight& other = all.at(i);
            if (i == index || other.kernoId() != criterion.kernoId || !overlap(own, other))
                continue;
            ranges = criterion.excluded ? difference(ranges, other) : intersection(ranges, other);
            metByOther = true;
        }
        if (!metByOther && !isOwn && !criterion.excluded)
            return {};
    }
    return ranges;
}

}  // namespace

bool needsOnlyNamedKernos(const QList<KernoCriterion>& criteria) {
    return !criteria.isEmpty() &&
           std::none_of(criteria.cbegin(), criteria.cend(),
                        [](const KernoCriterion& criterion) { return criterion.excluded; });
}

Ranges codedForAny(const QList<Highlight>& highlights, const QList<KernoCriterion>& criteria) {
    QList<Highlight> qualified;
    for (const Highlight& highlight : highlights) {
        const auto qualifies = [&highlight](const KernoCriterion& criterion) {
            return (highlight.kernoId() == criterion.kernoId) != criterion.excluded;
        };
        if (criteria.isEmpty() || std::any_of(criteria.cbegin(), criteria.cend(), qualifies))
            qualified.append(highlight);
    }
    return passages::mergedRanges(qualified);
}

Ranges codedForAll(const QList<Highlight>& highlights, const QList<KernoCriterion>& criteria) {
    const bool onlyNamed = needsOnlyNamedKernos(criteria);
    Ranges coded;
    QSet<Range> known;
    for (int i = 0; i < highlights.size(); ++i) {
        if (onlyNamed && !namesKerno(criteria, highlights.at(i).kernoId()))
            continue;
        for (const Range& range : partsOf(i, highlights, criteria)) {
            if (!known.contains(range)) {
                known.insert(range);
                coded.append(range);
            }
        }
    }
    return coded;
}

}  // namespace Search
