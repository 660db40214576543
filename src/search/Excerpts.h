#pragma once

#include "records/QuestionAnswer.h"
#include "search/ContextMatches.h"
#include "search/NarrowScan.h"

#include <QRegularExpression>
#include <QVector>

namespace Search {

/// Characters between two hits with their words, up to which both are shown as one.
constexpr int mergeDistance = 40;

/// Joins stretches, in text order, with up to that many characters between the end of one and the start of
/// the next.
QVector<Stretch> merged(const QVector<Stretch>& stretches, int distance = mergeDistance);

/// Whether the part of an answer within [from, to) can have a hit at all. Costs far less than looking for it.
bool mayHaveHits(const QuestionAnswer& answer, const Stretch& within, const NarrowScan& scan);

/// The stretches of a text within [from, to) to show for its hits, in positions of the whole text. Only
/// what lies in that range is searched, as if it were a text of its own.
QVector<Stretch> excerptRanges(const QString& text, const Stretch& within, const QRegularExpression& hit);

/// The part of an answer with its hits marked; an empty record when it holds nothing of the answer.
QuestionAnswer excerpt(const QuestionAnswer& answer, const Stretch& range, const QRegularExpression& hit);

}  // namespace Search
