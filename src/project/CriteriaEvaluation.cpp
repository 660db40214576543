#include "project/CriteriaEvaluation.h"

#include <QDebug>
#include <QHash>
#include <QSet>

namespace criteria {
namespace {

QVector<int> combineHighlights(const QVector<int>& left, const QVector<int>& right, bool isAnd) {
    const bool leftIsShorter = left.size() < right.size();
    const QVector<int>& shorter = leftIsShorter ? left : right;
    const QVector<int>& longer = leftIsShorter ? right : left;
    if (shorter.isEmpty())
        return isAnd ? QVector<int>() : longer;
    const QSet<int> known(longer.constBegin(), longer.constEnd());
    QVector<int> result = isAnd ? QVector<int>() : longer;
    for (int highlight : shorter) {
        if (known.contains(highlight) == isAnd)
            result.append(highlight);
    }
    return result;
}

// Joins row `index` to the one before it, which takes the result, and the junction to what follows.
void joinToPrevious(QVector<Term>& terms, int index) {
    Term& previous = terms[index - 1];
    previous.results = combine(previous.results, terms.at(index).results, previous.isAnd);
    previous.isAnd = terms.at(index).isAnd;
    terms.remove(index);
}

}  // namespace

Results combine(const Results& left, const Results& right, bool isAnd) {
    if (left.size() != right.size()) {
        qDebug() << "Criterion results mismatch. Invalid data from server.";
        return {};
    }
    QHash<int, int> places;
    places.reserve(right.size());
    for (int i = right.size() - 1; i >= 0; --i)
        places.insert(right.at(i).kerno, i);
    Results result;
    result.reserve(left.size());
    for (const Item& item : left) {
        const auto place = places.constFind(item.kerno);
        if (place != places.constEnd())
            result.append(
                {item.kerno, combineHighlights(item.highlights, right.at(*place).highlights, isAnd)});
    }
    return result;
}

Results evaluate(QVector<Term> terms) {
    if (terms.isEmpty())
        return {};
    // A bracket around a single row has no neighbour to join.
    for (int i = terms.size() - 1; i > 0; --i) {
        if (terms.at(i).level == 1 && terms.at(i - 1).level == 1)
            joinToPrevious(terms, i);
    }
    for (int i = terms.size() - 1; i > 0; --i)
        joinToPrevious(terms, i);
    return terms.first().results;
}

}  // namespace criteria
