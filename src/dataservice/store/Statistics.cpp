#include "store/Statistics.h"

#include "store/Database.h"
#include "store/Table.h"

namespace statistics {
namespace {

using wire::Record;

QString name(Record record) {
    return tableOf(record).name;
}

/// Runs the statement and hands each row on.
template <typename Visit> Outcome forEach(Statement& statement, Visit visit) {
    if (statement.run()) {
        while (statement.next())
            visit(statement);
    }
    return statement.outcome();
}

/// The sources that exist, by id.
Outcome sourceIds(Database& database, std::set<qint64>* ids) {
    Statement statement = database.statement(QStringLiteral("SELECT \"id\" FROM ") + name(Record::Source));
    return forEach(statement, [&](Statement& row) { ids->insert(row.value(0).toLongLong()); });
}

Outcome kernoSources(Database& database, const std::vector<qint64>& kernoIds, std::set<qint64>* ids) {
    for (qint64 kernoId : kernoIds) {
        Statement statement =
            database.statement(QStringLiteral("SELECT DISTINCT \"sourceId\" FROM ") +
                               name(Record::Highlight) + QStringLiteral(" WHERE \"kernoId\" = ?"));
        statement.bind(kernoId);
        const Outcome outcome =
            forEach(statement, [&](Statement& row) { ids->insert(row.value(0).toLongLong()); });
        if (!outcome.ok())
            return outcome;
    }
    return Outcome::done();
}

/// Counts the links of a key, those of the given sources only when `within` isn't null.
Outcome countLinks(Database& database, qint64 keyId, const std::set<qint64>* within,
                   std::vector<MetadataOverview>* rows) {
    Statement statement = database.statement(
        QStringLiteral("SELECT v.\"id\", v.\"value\", l.\"sourceId\" FROM ") + name(Record::SourceMetadata) +
        QStringLiteral(" l JOIN ") + name(Record::SourceMetadataValue) +
        QStringLiteral(" v ON v.\"id\" = l.\"valueId\" WHERE l.\"keyId\" = ? ORDER BY v.\"id\""));
    statement.bind(keyId);
    qint64 valueId = -1;
    return forEach(statement, [&](Statement& row) {
        if (within && within->count(row.value(2).toLongLong()) == 0)
            return;
        if (rows->empty() || row.value(0).toLongLong() != valueId) {
            valueId = row.value(0).toLongLong();
            rows->emplace_back();
            rows->back().value = row.value(1).toString();
        }
        ++rows->back().valueOccurrences;
    });
}

}  // namespace

Outcome maxHighlightsCount(Database& database, qint64* count) {
    Statement statement =
        database.statement(QStringLiteral("SELECT COALESCE(MAX(n), 0) FROM (SELECT COUNT(*) AS n FROM ") +
                           name(Record::Highlight) + QStringLiteral(" GROUP BY \"kernoId\") c"));
    return forEach(statement, [&](Statement& row) { *count = row.value(0).toLongLong(); });
}

Outcome quoteCounts(Database& database, std::vector<QuoteCount>* rows) {
    Statement statement = database.statement(
        QStringLiteral("SELECT \"kernoId\", COUNT(*), COUNT(DISTINCT \"sourceId\") FROM ") +
        name(Record::Highlight) + QStringLiteral(" GROUP BY \"kernoId\" ORDER BY \"kernoId\""));
    return forEach(statement, [&](Statement& row) {
        rows->push_back({row.value(0).toLongLong(), row.value(1).toLongLong(), row.value(2).toLongLong()});
    });
}

Outcome overviewPerSource(Database& database, qint64 kernoId, std::vector<SourceOverview>* rows) {
    Statement statement = database.statement(
        QStringLiteral("SELECT c.n, (SELECT COUNT(*) FROM ") + name(Record::Highlight) +
        QStringLiteral(" a WHERE a.\"sourceId\" = c.\"sourceId\"), COALESCE(s.\"title\", '') FROM "
                       "(SELECT \"sourceId\", COUNT(*) AS n FROM ") +
        name(Record::Highlight) +
        QStringLiteral(" WHERE \"kernoId\" = ? GROUP BY \"sourceId\") c LEFT JOIN ") + name(Record::Source) +
        QStringLiteral(" s ON s.\"id\" = c.\"sourceId\" ORDER BY c.\"sourceId\""));
    statement.bind(kernoId);
    return forEach(statement, [&](Statement& row) {
        rows->push_back({row.value(0).toLongLong(), row.value(1).toLongLong(), row.value(2).toString()});
    });
}

Outcome metadataOverview(Database& database, qint64 keyId, std::vector<MetadataOverview>* rows) {
    std::set<qint64> sources;
    Outcome outcome = sourceIds(database, &sources);
    if (outcome.ok())
        outcome = countLinks(database, keyId, nullptr, rows);
    if (!outcome.ok())
        return outcome;
    Statement statement =
        database.statement(QStringLiteral("SELECT COUNT(*), COUNT(DISTINCT \"sourceId\") FROM ") +
                           name(Record::SourceMetadata) + QStringLiteral(" WHERE \"keyId\" = ?"));
    statement.bind(keyId);
    return forEach(statement, [&](Statement& row) {
        for (MetadataOverview& each : *rows) {
            each.keyOccurrences = row.value(0).toLongLong();
            each.sourcesOccurrences = row.value(1).toLongLong();
            each.sourcesCount = static_cast<qint64>(sources.size());
        }
    });
}

Outcome metadataOverview(Database& database, qint64 keyId, const std::vector<qint64>& kernoIds,
                         std::vector<MetadataOverview>* rows) {
    std::set<qint64> sources;
    Outcome outcome = kernoSources(database, kernoIds, &sources);
    if (outcome.ok())
        outcome = countLinks(database, keyId, &sources, rows);
    for (MetadataOverview& each : *rows)
        each.sourcesOccurrences = static_cast<qint64>(sources.size());
    return outcome;
}

}  // namespace statistics
