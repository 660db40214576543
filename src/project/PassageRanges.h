#pragma once

#include "records/Highlight.h"

#include <QList>
#include <QPair>

/// The stretches of an answer that make its quotes. A range is [first, second), in characters of the plain
/// text.
namespace passages {

using Range = QPair<int, int>;

/// Each highlight widens the range before it when they overlap or touch, otherwise it starts a new one. The
/// highlights come in their one order.
QList<Range> mergedRanges(const QList<Highlight>& highlights);

/// The same for ranges.
QList<Range> mergedRanges(const QList<Range>& ranges);

/// For each highlight of `first` that overlaps one of `second`, the union of it and all those it overlaps,
/// merged. Both lists come in the one order of highlights.
QList<Range> overlapRanges(const QList<Highlight>& first, const QList<Highlight>& second);

}  // namespace passages
