#pragma once

#include <QVector>

/// The set arithmetic of queries. Kernos and highlights are numbers here, given out so that two records have
/// the same number exactly if they agree on every field.
namespace criteria {

/// A kerno with those of its highlights that pass.
struct Item {
    int kerno = 0;
    QVector<int> highlights;
    bool operator==(const Item& other) const {
        return kerno == other.kerno && highlights == other.highlights;
    }
};

using Results = QVector<Item>;

/// One row of a query with the answer to it.
struct Term {
    int level = 0;       ///< neighbouring rows of level 1 are bracketed
    bool isAnd = false;  ///< how the row is joined to the next
    Results results;
};

/// What passes both or either. The kernos of `left` in its order, as far as `right` has them; empty when the
/// two differ in length. Linear in the number of highlights.
Results combine(const Results& left, const Results& right, bool isAnd);

/// The answer to a whole query: brackets first, then the rest, each from the right. No terms give no results.
Results evaluate(QVector<Term> terms);

}  // namespace criteria
