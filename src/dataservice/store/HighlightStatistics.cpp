#include "store/Database.h"
#include "store/Statistics.h"
#include "store/Sweeps.h"
#include "store/Table.h"

namespace statistics {
namespace {

/// A highlight's place. Two highlights lie in the same text when source and question agree.
struct Place {
    qint64 sourceId = -1;
    qint64 questionId = -1;
    bool operator!=(const Place& other) const {
        return sourceId != other.sourceId || questionId != other.questionId;
    }
};

const QString placeOrder = QStringLiteral("\"sourceId\", \"questionId\", \"start\", \"length\" DESC, \"id\"");

QString highlights(const QString& columns, const QString& condition, const QString& order) {
    return QStringLiteral("SELECT \"sourceId\", \"questionId\", \"start\", \"length\", ") + columns +
           QStringLiteral(" FROM ") + tableOf(wire::Record::Highlight).name + condition +
           QStringLiteral(" ORDER BY ") + order;
}

Place placeOf(const Statement& row) {
    return {row.value(0).toLongLong(), row.value(1).toLongLong()};
}

qint64 startOf(const Statement& row) {
    return row.value(2).toLongLong();
}

qint64 endOf(const Statement& row) {
    return startOf(row) + qMax<qint64>(0, row.value(3).toLongLong());
}

/// The rows come ordered by what they are grouped by, then by place; column 4 is the kerno, 5 the author.
Outcome coverage(Database& database, bool byKerno, bool byAuthor, std::vector<CoverageRow>* rows) {
    const QString author = QStringLiteral("\"author\", ");
    const QString order = (byKerno ? QStringLiteral("\"kernoId\", ") : QString()) +
                          (byAuthor ? author : QString()) + placeOrder;
    Statement row = database.statement(highlights(
        byAuthor ? QStringLiteral("\"kernoId\", \"author\"") : QStringLiteral("\"kernoId\""), {}, order));
    CoveredLength covered;
    Place place;
    if (row.run()) {
        while (row.next()) {
            const qint64 kernoId = byKerno ? row.value(4).toLongLong() : 0;
            const QString who = byAuthor ? row.value(5).toString() : QString();
            const bool opens = rows->empty() || rows->back().kernoId != kernoId || rows->back().author != who;
            if (opens) {
                rows->emplace_back();
                rows->back().kernoId = kernoId;
                rows->back().author = who;
                covered = {};
            }
            const Place here = placeOf(row);
            if (opens || here != place)
                covered.nextText();
            place = here;
            covered.add(startOf(row), endOf(row));
            rows->back().length = covered.total();
            ++rows->back().count;
        }
    }
    return row.outcome();
}

Outcome sweep(Statement& row, OverlapSweep& overlaps) {
    Place place;
    if (row.run()) {
        while (row.next()) {
            const Place here = placeOf(row);
            if (here != place)
                overlaps.nextText();
            place = here;
            overlaps.add(row.value(4).toLongLong(), startOf(row), endOf(row));
        }
    }
    return row.outcome();
}

Outcome sweepAll(Database& database, OverlapSweep& overlaps) {
    Statement row = database.statement(highlights(QStringLiteral("\"kernoId\""), {}, placeOrder));
    return sweep(row, overlaps);
}

}  // namespace

Outcome coverageByKerno(Database& database, std::vector<CoverageRow>* rows) {
    return coverage(database, true, false, rows);
}

Outcome coverageByAuthor(Database& database, std::vector<CoverageRow>* rows) {
    const Outcome outcome = coverage(database, false, true, rows);
    qint64 total = 0;
    for (const CoverageRow& row : *rows)
        total += row.length;
    for (CoverageRow& row : *rows)
        row.totalLength = total;
    return outcome;
}

Outcome coverageByKernoAndAuthor(Database& database, std::vector<CoverageRow>* rows) {
    const Outcome outcome = coverage(database, true, true, rows);
    std::map<qint64, qint64> totals;
    for (const CoverageRow& row : *rows)
        totals[row.kernoId] += row.length;
    for (CoverageRow& row : *rows)
        row.totalLength = totals[row.kernoId];
    return outcome;
}

Outcome codedLengths(Database& database, std::map<qint64, qint64>* lengths) {
    Statement source =
        database.statement(QStringLiteral("SELECT \"id\" FROM ") + tableOf(wire::Record::Source).name);
    if (source.run()) {
        while (source.next())
            lengths->emplace(source.value(0).toLongLong(), 0);
    }
    if (!source.outcome().ok())
        return source.outcome();
    Statement row = database.statement(highlights(QStringLiteral("\"id\""), {}, placeOrder));
    CoveredLength covered;
    Place place;
    if (row.run()) {
        while (row.next()) {
            const Place here = placeOf(row);
            if (here != place)
                covered.nextText();
            place = here;
            const qint64 before = covered.total();
            covered.add(startOf(row), endOf(row));
            const auto found = lengths->find(here.sourceId);
            if (found != lengths->end())
                found->second += covered.total() - before;
        }
    }
    return row.outcome();
}

Outcome overlapCount(Database& database, qint64 kernoId1, qint64 kernoId2, qint64* count) {
    OverlapSweep overlaps([&](qint64 kernoId, qint64 other, qint64 pairs) {
        if ((kernoId == kernoId1 && other == kernoId2) || (kernoId == kernoId2 && other == kernoId1))
            *count += pairs;
    });
    Statement row = database.statement(highlights(
        QStringLiteral("\"kernoId\""), QStringLiteral(" WHERE \"kernoId\" IN (?, ?)"), placeOrder));
    row.bind(kernoId1).bind(kernoId2);
    *count = 0;
    return sweep(row, overlaps);
}

Outcome overlappingKernos(Database& database, qint64 kernoId, std::set<qint64>* others) {
    OverlapSweep overlaps([&](qint64 one, qint64 other, qint64) {
        if (one == kernoId && other != kernoId)
            others->insert(other);
        else if (other == kernoId && one != kernoId)
            others->insert(one);
    });
    return sweepAll(database, overlaps);
}

Outcome kernosWithOverlap(Database& database, std::set<qint64>* kernoIds) {
    OverlapSweep overlaps([&](qint64 one, qint64 other, qint64) {
        if (one == other)
            return;
        kernoIds->insert(one);
        kernoIds->insert(other);
    });
    return sweepAll(database, overlaps);
}

}  // namespace statistics
