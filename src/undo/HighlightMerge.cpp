#include "undo/HighlightMerge.h"

#include <algorithm>

namespace coding {

Addition add(const QList<Highlight>& existing, const QPair<int, int>& range, const QString& author) {
    Addition result;
    result.range = range;
    result.alreadyCoded = std::any_of(existing.cbegin(), existing.cend(), [&range](const Highlight& h) {
        return h.start() <= range.first && range.second <= h.end();
    });
    if (result.alreadyCoded)
        return result;
    for (const Highlight& h : existing) {
        if (h.author() != author)
            break;
        if (h.extendRange(result.range))
            result.swallowed.append(h);
        else if (!result.swallowed.isEmpty())
            break;
    }
    return result;
}

QList<Highlight> joinOverlapping(QList<Highlight> highlights) {
    std::stable_sort(highlights.begin(), highlights.end(), highlightLessThan);
    QList<Highlight> joined;
    for (const Highlight& h : qAsConst(highlights)) {
        if (joined.isEmpty() || !joined.last().overlaps(h)) {
            joined.append(h);
            joined.last().detach();
            continue;
        }
        Highlight& current = joined.last();
        const int end = std::max(current.end(), h.end());
        current.setStart(std::min(current.start(), h.start()));
        current.setLength(end - current.start());
    }
    return joined;
}

}  // namespace coding
