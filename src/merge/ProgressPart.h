#pragma once

#include "project/Progress.h"

/// The part [from, to) of a long work, in percent, as a progress of its own.
inline Progress progressPart(const Progress& whole, int from, int to) {
    if (!whole)
        return {};
    return [whole, from, to](qint64 done, qint64 of) {
        return whole(from + (of > 0 ? done * (to - from) / of : 0), 100);
    };
}
