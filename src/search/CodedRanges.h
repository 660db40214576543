#pragma once

#include "project/PassageRanges.h"
#include "search/SearchCriteria.h"

namespace Search {

/// The stretches of one answer that are coded as asked. `highlights` are those of the answer, in their one
/// order; those of kernos that no criterion names matter only when there is no "=" criterion, or a "!=" one.
/// Without criteria all coded text counts.

/// Coded as any criterion says; stretches that overlap or touch are one.
QList<passages::Range> codedForAny(const QList<Highlight>& highlights, const QList<KernoCriterion>& criteria);

/// Coded as all criteria say: of each highlight what lies in every other that overlaps it and is asked for,
/// and in none that is excluded. Each stretch once; they may overlap.
QList<passages::Range> codedForAll(const QList<Highlight>& highlights, const QList<KernoCriterion>& criteria);

/// Whether only highlights of the kernos that the criteria name matter.
bool needsOnlyNamedKernos(const QList<KernoCriterion>& criteria);

}  // namespace Search
