#pragma once

#include <QHash>
#include <QList>
#include <functional>

/// A kerno and what stands below it.
struct KernoLevels {
    QList<int> ids;          ///< the main kerno, then depth first its descendants
    QHash<int, int> levels;  ///< 0 for the main kerno, 1 for its children, 2 for theirs
};

/// Deeper levels aren't listed. `childIdsOf` gives the children of a kerno in their order. A kerno is listed
/// once.
KernoLevels kernoLevels(int mainId, const std::function<QList<int>(int)>& childIdsOf);

/// Degrees between neighbours on a ring: 30 with fewer than two on it. `overlaps` maps kernos to overlap
/// counts; the ring holds those with `overlap`, without the main kerno.
int angleForOverlap(const QHash<int, int>& overlaps, int overlap, int mainId);
