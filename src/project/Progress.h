#pragma once

#include <QtGlobal>
#include <functional>

/// Long work calls it now and then with what is done of how much; false asks the work to end. May be empty.
using Progress = std::function<bool(qint64 done, qint64 of)>;

/// Tells a progress, if there is one; whether the work goes on.
inline bool goesOn(const Progress& progress, qint64 done, qint64 of) {
    return !progress || progress(done, of);
}
