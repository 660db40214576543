#include "protocol/Arguments.h"
#include "protocol/Rows.h"
#include "protocol/StatisticsRequests.h"
#include "store/JoinedReads.h"

#include <QHash>
#include <set>

namespace {

using wire::ParsedQuery;

Answer kernoHasChildren(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 parent = arguments.integer(QStringLiteral("parentKernoId"));
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    qint64 children = 0;
    const Outcome outcome = joinedreads::childCount(store.database(), parent, &children);
    DataPayload payload(query.operation);
    payload.json.value(static_cast<qint64>(children > 0 ? 1 : 0));
    return payload.finish(outcome);
}

/// Highlights of some kernos in one answer.
Answer highlightsOfKernos(ProjectStore& store, const ParsedQuery& query) {
    const Table& table = tableOf(wire::Record::Highlight);
    Arguments arguments(query);
    Selection selection;
    selection.table = &table;
    for (const QString& name : {QStringLiteral("sourceId"), QStringLiteral("questionId")})
        selection.filters.push_back({table.indexOf(name), arguments.integer(name)});
    const std::vector<qint64> ids = arguments.ids(QStringLiteral("kernoIds"));
    const std::set<qint64> wanted(ids.begin(), ids.end());
    const std::vector<int> columns = requestedColumns(table, query.fields, &arguments.faults);
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    selection.columns = columns;
    selection.columns.push_back(table.indexOf(QStringLiteral("kernoId")));
    DataPayload payload(query.operation);
    payload.json.beginArray();
    const Outcome outcome = store.select(selection, [&](const RowView& row) {
        if (wanted.count(row.integer(static_cast<int>(columns.size()))) > 0)
            writeRow(payload.json, table, columns, row);
    });
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer answersWithQuestion(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const QString questionId = QStringLiteral("questionId");
    const qint64 sourceId = arguments.integer(QStringLiteral("sourceId"));
    std::optional<qint64> question;
    if (arguments.has(questionId))
        question = arguments.integer(questionId);
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    const Outcome outcome =
        joinedreads::answersWithQuestion(store.database(), sourceId, question, [&](const RowView& row) {
            payload.json.beginObject();
            payload.json.key(QStringLiteral("id")).value(row.integer(0));
            payload.json.key(questionId).value(row.integer(1));
            payload.json.key(QStringLiteral("sourceId")).value(row.integer(2));
            payload.json.key(QStringLiteral("question")).value(row.text(3));
            payload.json.key(QStringLiteral("author")).value(row.text(4));
            payload.json.key(QStringLiteral("timestamp")).value(row.text(5));
            payload.json.key(QStringLiteral("answer")).value(row.text(6));
            payload.json.endObject();
        });
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer metadataListForReport(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 sourceId = arguments.integer(QStringLiteral("sourceId"));
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    const Outcome outcome =
        joinedreads::metadataOfSource(store.database(), sourceId, [&](const RowView& row) {
            payload.json.beginObject();
            payload.json.key(QStringLiteral("id")).value(row.integer(0));
            payload.json.key(QStringLiteral("key")).value(row.text(1));
            payload.json.key(QStringLiteral("value"));
            writeValue(payload.json, FieldType::Scalar, row.value(2));
            payload.json.key(QStringLiteral("keyId")).value(row.integer(3));
            payload.json.key(QStringLiteral("valueId")).value(row.integer(4));
            payload.json.key(QStringLiteral("sourceId")).value(row.integer(5));
            payload.json.key(QStringLiteral("author")).value(row.text(6));
            payload.json.key(QStringLiteral("timestamp")).value(row.text(7));
            payload.json.endObject();
        });
    payload.json.endArray();
    return payload.finish(outcome);
}

}  // namespace

ReadHandler joinedReadHandler(const QString& operation) {
    static const QHash<QString, ReadHandler> handlers{
        {wire::name::kernoHasChildren, kernoHasChildren},
        {wire::name::highlightQueryListBySourceQuestionAndKernos, highlightsOfKernos},
        {wire::name::questionAnswerWithQuestionQueryList, answersWithQuestion},
        {wire::name::sourceMetadataListForReport, metadataListForReport}};
    return handlers.value(operation, nullptr);
}
