#pragma once

#include "project/CriteriaEvaluation.h"
#include "project/RecordNumbers.h"
#include "records/Highlight.h"
#include "records/Kerno.h"

#include <QJsonArray>
#include <QVariantList>

/// The kernos and highlights that a query has met, each kept once, and its answers in their numbers.
class QueryRecords {
public:
    /// The answer to one row: kerno objects, each with its `highlights`.
    criteria::Results read(const QJsonArray& answer);

    /// The answer to `rows` rows at once: the same, with the rows that a highlight passes as bits in
    /// `passes`.
    QVector<criteria::Results> read(const QJsonArray& answer, int rows);

    /// One map for each item, with `kerno` and the `highlights`.
    QVariantList toMaps(const criteria::Results& results) const;

private:
    RecordNumbers<Kerno> m_kernos;
    RecordNumbers<Highlight> m_highlights;
};
