#pragma once

#include <QPair>
#include <algorithm>

/// What highlights and memos have in common: they lie on a stretch [start, end) of an answer's plain text.
namespace passage {

/// Cuts a state to the window [offset, offset + windowLength) and makes it relative to `offset`. A `windowLength`
/// of -1 has no end. The end is relative, the limit it is compared with isn't: this is the rule of the system.
template <typename State> void clip(State& s, int offset, int windowLength) {
    s.start -= offset;
    if (s.start < 0) {
        s.length += s.start;
        s.start = 0;
    }
    s.end = s.start + s.length;
    if (windowLength > -1) {
        const int limit = offset + windowLength;
        if (s.end > limit) {
            s.end = limit;
            s.length = limit - s.start;
        }
    }
    s.dataValid = s.length > 0;
}

template <typename P> bool extendRange(const P& passage, QPair<int, int>& range) {
    if (range.second <= passage.start() || range.first >= passage.end())
        return false;
    range.first = std::min(range.first, passage.start());
    range.second = std::max(range.second, passage.end());
    return true;
}

template <typename P> bool extendRangeWith(const P& passage, bool sameState, QPair<int, int>& range, const P& other) {
    if (!sameState && (other.end() <= passage.start() || other.start() >= passage.end()))
        return false;
    range.first = std::min({range.first, passage.start(), other.start()});
    range.second = std::max({range.second, passage.end(), other.end()});
    return true;
}

/// Start ascending; on equal start the longer one first.
template <typename P> bool lessThan(const P& a, const P& b) {
    return a.start() != b.start() ? a.start() < b.start() : a.end() > b.end();
}

}  // namespace passage
