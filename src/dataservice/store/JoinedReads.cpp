#include "store/JoinedReads.h"

#include "store/Database.h"
#include "store/Sql.h"

namespace joinedreads {
namespace {

QString name(wire::Record record) {
    return tableOf(record).name;
}

Outcome visitAll(Statement& statement, const RowVisitor& visit) {
    if (statement.run()) {
        const RowView row(statement);
        while (statement.next())
            visit(row);
    }
    return statement.outcome();
}

}  // namespace

Outcome childCount(Database& database, qint64 parentKernoId, qint64* count) {
    Statement statement =
        database.statement(QStringLiteral("SELECT COUNT(*) FROM ") + name(wire::Record::Kerno) +
                           QStringLiteral(" WHERE \"parentKernoId\" = ?"));
    statement.bind(parentKernoId);
    return visitAll(statement, [&](const RowView& row) { *count = row.integer(0); });
}

Outcome answersWithQuestion(Database& database, qint64 sourceId, std::optional<qint64> questionId,
                            const RowVisitor& visit) {
    Statement statement = database.statement(
        QStringLiteral(
            "SELECT a.\"id\", a.\"questionId\", a.\"sourceId\", COALESCE(q.\"question\", ''), a.\"author\", "
            "a.\"timestamp\", ") +
        sql::asBytes(QStringLiteral("a.\"answer\"")) + QStringLiteral(" FROM ") +
        name(wire::Record::QuestionAnswer) + QStringLiteral(" a LEFT JOIN ") + name(wire::Record::Question) +
        QStringLiteral(" q ON q.\"id\" = a.\"questionId\" WHERE a.\"sourceId\" = ?") +
        (questionId ? QStringLiteral(" AND a.\"questionId\" = ?") : QString()) +
        QStringLiteral(" ORDER BY a.\"id\""));
    statement.bind(sourceId);
    if (questionId)
        statement.bind(*questionId);
    return visitAll(statement, visit);
}

Outcome metadataOfSource(Database& database, qint64 sourceId, const RowVisitor& visit) {
    Statement statement = database.statement(
        QStringLiteral(
            "SELECT l.\"id\", COALESCE(k.\"key\", ''), COALESCE(v.\"value\", 'null'), l.\"keyId\", "
            "l.\"valueId\", l.\"sourceId\", l.\"author\", l.\"timestamp\" FROM ") +
        name(wire::Record::SourceMetadata) + QStringLiteral(" l LEFT JOIN ") +
        name(wire::Record::SourceMetadataKey) + QStringLiteral(" k ON k.\"id\" = l.\"keyId\" LEFT JOIN ") +
        name(wire::Record::SourceMetadataValue) +
        QStringLiteral(" v ON v.\"id\" = l.\"valueId\" WHERE l.\"sourceId\" = ? ORDER BY l.\"id\""));
    statement.bind(sourceId);
    return visitAll(statement, visit);
}

}  // namespace joinedreads
