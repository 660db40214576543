#pragma once

/// Pauses of the project's lifecycle, in milliseconds. The defaults are the program's; tests hand in shorter
/// ones.
struct ProjectTimings {
    int settle = 200;       ///< after an open or a failed one, so that the screens' bindings can follow
    int closeSettle = 400;  ///< after closing the project that is to make room for another
};
