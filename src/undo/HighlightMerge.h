#pragma once

#include "records/Highlight.h"

#include <QList>
#include <QPair>

/// What becomes of passages of one kerno that meet. Values in, values out.
namespace coding {

/// What coding a new passage does to the passages that its kerno already has in the same answer.
struct Addition {
    bool alreadyCoded = false;   ///< one of them contains the new passage: nothing is to be added
    QPair<int, int> range;       ///< the new passage, widened to take in what it swallows
    QList<Highlight> swallowed;  ///< to be deleted, in their order
};

/// `existing` in the service's order. Containment is tested against all of them; swallowing begins at the
/// first one that overlaps, ends after the run of those that overlap, and stops for good at another author.
Addition add(const QList<Highlight>& existing, const QPair<int, int>& range, const QString& author);

/// The highlights in reading order with every run of overlapping ones joined into its first. Touching ones
/// stay apart. The result keeps the first one's id and author; the records given are not changed.
QList<Highlight> joinOverlapping(QList<Highlight> highlights);

}  // namespace coding
