#include "protocol/Arguments.h"
#include "protocol/Rows.h"
#include "protocol/StatisticsRequests.h"
#include "store/Criterion.h"

namespace {

/// The requested columns of a table, followed by those that the criterion looks at.
struct Columns {
    std::vector<int> requested;
    Selection selection;

    Columns(const Table& table, const std::vector<wire::QueryField>& fields, const QString& nested,
            const QStringList& examined, std::vector<Fault>* faults)
        : requested(requestedColumns(table, fields, faults, nested)) {
        selection.table = &table;
        selection.columns = requested;
        for (const QString& name : examined)
            selection.columns.push_back(table.indexOf(name));
    }

    /// Where the nth examined column stands in a row.
    int examined(int n) const { return static_cast<int>(requested.size()) + n; }
};

Outcome readCriterion(ProjectStore& store, Arguments& arguments, Criterion* criterion) {
    const QString fieldName = QStringLiteral("fieldName");
    if (!arguments.has(fieldName)) {
        arguments.finish();
        return Outcome::done();
    }
    const QString field = arguments.text(fieldName);
    const QString op = arguments.text(QStringLiteral("operator"));
    const QString value = arguments.text(QStringLiteral("value"));
    const qint64 keyId = arguments.integer(QStringLiteral("keyId"), -1);
    if (!arguments.finish())
        return Outcome::done();
    return Criterion::read(store.database(), field, op, value, keyId, criterion);
}

/// Every kerno, with those of its highlights that pass.
Answer kernosWithHighlights(ProjectStore& store, const wire::ParsedQuery& query) {
    const QString nested = QStringLiteral("highlights");
    const QString author = QStringLiteral("author");
    const QString timestamp = QStringLiteral("timestamp");
    Arguments arguments(query);
    std::vector<wire::QueryField> highlightFields;
    for (const wire::QueryField& field : query.fields) {
        if (field.name == nested)
            highlightFields = field.fields;
    }
    Columns kernos(tableOf(wire::Record::Kerno), query.fields, nested,
                   {QStringLiteral("id"), author, timestamp}, &arguments.faults);
    Columns highlights(tableOf(wire::Record::Highlight), highlightFields, {},
                       {QStringLiteral("sourceId"), author, timestamp}, &arguments.faults);
    Criterion criterion;
    const Outcome understood = readCriterion(store, arguments, &criterion);
    if (!arguments.faults.empty())
        return Answer::refused(arguments.faults);
    if (!understood.ok())
        return Answer::from(understood);

    DataPayload payload(query.operation);
    JsonWriter& json = payload.json;
    const int kernoIdColumn = highlights.selection.table->indexOf(QStringLiteral("kernoId"));
    Outcome inner;
    json.beginArray();
    const Outcome outer = store.select(kernos.selection, [&](const RowView& kerno) {
        const qint64 kernoId = kerno.integer(kernos.examined(0));
        json.beginObject();
        for (size_t i = 0; i < kernos.requested.size(); ++i) {
            const Column& column = kernos.selection.table->columns[static_cast<size_t>(kernos.requested[i])];
            json.key(column.name);
            writeValue(json, column.type, kerno.value(static_cast<int>(i)));
        }
        json.key(nested).beginArray();
        if (inner.ok() &&
            criterion.kernoPasses(kernoId, kerno.text(kernos.examined(1)), kerno.text(kernos.examined(2)))) {
            highlights.selection.filters = {{kernoIdColumn, kernoId}};
            inner = store.select(highlights.selection, [&](const RowView& row) {
                if (criterion.highlightPasses(row.integer(highlights.examined(0)),
                                              row.text(highlights.examined(1)),
                                              row.text(highlights.examined(2))))
                    writeRow(json, *highlights.selection.table, highlights.requested, row);
            });
        }
        json.endArray().endObject();
    });
    json.endArray();
    return payload.finish(outer.ok() ? inner : outer);
}

}  // namespace

ReadHandler criteriaHandler(const QString& operation) {
    return operation == wire::name::kernoQueryListWithHighlightsAndCriteria ? kernosWithHighlights : nullptr;
}
