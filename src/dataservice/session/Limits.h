#pragma once

/// Bounds of one group of requests, which is one transaction.
struct GroupLimits {
    int milliseconds = 10;
    int slowDiskMilliseconds = 100;  ///< where committing takes longer than the work, a group may take twice
                                     ///< as long as it, up to this
    int frames = 1000;
    int retryMilliseconds =
        5000;  ///< of requests one by one after their group failed, until the rest fail as well
    int answerBytes =
        16 * 1024 * 1024;  ///< no further request is taken into a group whose answers are this long
};
