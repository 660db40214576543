#pragma once

#include <functional>

/// Told how far a long work has come, 0 to 100; false ends it. May be called on any thread. An empty one
/// watches nothing.
using Watch = std::function<bool(int percent)>;

/// Tells the watch; whether the work goes on.
inline bool goesOn(const Watch& watch, qint64 done, qint64 of) {
    return !watch || watch(of > 0 ? static_cast<int>(done * 100 / of) : 0);
}

/// The part [from, to) of a work, in percent, as a watch of its own.
inline Watch part(const Watch& whole, int from, int to) {
    if (!whole)
        return {};
    return [whole, from, to](int percent) { return whole(from + percent * (to - from) / 100); };
}
