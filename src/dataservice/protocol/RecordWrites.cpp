#include "protocol/Arguments.h"
#include "protocol/RecordRequests.h"
#include "protocol/Rows.h"

#include <set>

namespace recordrequests {
namespace {

/// Where a batch made changes. Each source and question is named once.
struct Places {
    std::set<qint64> sourceIds;
    std::set<qint64> questionIds;

    void add(const QVariant& sourceId, const QVariant& questionId) {
        if (sourceId.isValid())
            sourceIds.insert(sourceId.toLongLong());
        if (questionId.isValid())
            questionIds.insert(questionId.toLongLong());
    }
};

const QVariant& valueOf(const Table& table, const RecordValues& values, const QString& column) {
    return values[static_cast<size_t>(table.indexOf(column))];
}

/// The stored place of a passage; nothing is added when there is none.
Outcome addStoredPlace(ProjectStore& store, const Table& table, const QVariant& id, Places* places) {
    Selection selection;
    selection.table = &table;
    selection.columns = {table.indexOf(QStringLiteral("sourceId")),
                         table.indexOf(QStringLiteral("questionId"))};
    selection.filters = {{table.idColumn, id}};
    return store.select(selection, [&](const RowView& row) { places->add(row.value(0), row.value(1)); });
}

void addSentPlace(const Table& table, const RecordValues& values, Places* places) {
    places->add(valueOf(table, values, QStringLiteral("sourceId")),
                valueOf(table, values, QStringLiteral("questionId")));
}

Answer finishBatch(const wire::ParsedQuery& query, const Outcome& outcome, const Places& places) {
    DataPayload payload(query.operation);
    const auto write = [&](const QString& key, const std::set<qint64>& ids) {
        payload.json.key(key).beginArray();
        for (qint64 id : ids)
            payload.json.value(id);
        payload.json.endArray();
    };
    payload.json.beginObject();
    write(QStringLiteral("sourceIds"), places.sourceIds);
    write(QStringLiteral("questionIds"), places.questionIds);
    payload.json.endObject();
    return payload.finish(outcome);
}

/// Ids are given out from 1 up; anything else is a record that was never numbered.
void checkNewId(const Table& table, const RecordValues& values, int position, std::vector<Fault>* faults) {
    const QVariant& id = values[static_cast<size_t>(table.idColumn)];
    const bool numbered = table.hasTextId() ? !id.toString().isEmpty() : id.toLongLong() >= 1;
    if (id.isValid() && !numbered)
        faults->push_back({QStringLiteral("\"%1\" names no record.").arg(table.id().name), position});
}

std::vector<RecordValues> batchValues(const Table& table, const wire::ParsedQuery& query, bool saving,
                                      std::vector<Fault>* faults) {
    Arguments arguments(query);
    std::vector<RecordValues> batch;
    for (const std::vector<wire::QueryArgument>* record :
         arguments.records(wire::batchArgument(table.record))) {
        const int position = record->empty() ? query.position : record->front().position;
        batch.push_back(recordValues(table, *record, position, &arguments.faults));
        if (saving)
            checkNewId(table, batch.back(), position, &arguments.faults);
    }
    arguments.finish();
    *faults = arguments.faults;
    return batch;
}

/// Does `work` with each record of the batch and the places it gathers, up to the first that fails.
template <typename Work>
Answer eachOfBatch(const Table& table, const wire::ParsedQuery& query, bool saving, const Work& work) {
    std::vector<Fault> faults;
    const std::vector<RecordValues> batch = batchValues(table, query, saving, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    Outcome outcome;
    Places places;
    for (const RecordValues& values : batch) {
        outcome = work(values, &places);
        if (!outcome.ok())
            break;
    }
    return finishBatch(query, outcome, places);
}

}  // namespace

Answer save(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    std::vector<Fault> faults;
    Selection selection;
    selection.table = &table;
    selection.columns = requestedColumns(table, query.fields, &faults);
    const RecordValues values = recordValues(table, query.arguments, query.position, &faults);
    checkNewId(table, values, query.position, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    selection.filters = {{table.idColumn, values[static_cast<size_t>(table.idColumn)]}};
    Outcome outcome = store.save(table, values);
    DataPayload payload(query.operation);
    if (outcome.ok()) {
        outcome = store.select(
            selection, [&](const RowView& row) { writeRow(payload.json, table, selection.columns, row); });
    }
    return payload.finish(outcome);
}

Answer remove(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    std::vector<Fault> faults;
    Selection selection;
    selection.table = &table;
    selection.columns = requestedColumns(table, query.fields, &faults);
    const RecordValues values = recordValues(table, query.arguments, query.position, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    const QVariant& id = values[static_cast<size_t>(table.idColumn)];
    selection.filters = {{table.idColumn, id}};
    DataPayload payload(query.operation);
    bool found = false;
    Outcome outcome = store.select(selection, [&](const RowView& row) {
        writeRow(payload.json, table, selection.columns, row);
        found = true;
    });
    if (outcome.ok() && found) {
        outcome = store.remove(table, id);
    } else {
        payload.json.beginObject();
        for (int place : selection.columns) {
            const Column& column = table.columns[static_cast<size_t>(place)];
            payload.json.key(column.name);
            writeValue(payload.json, column.type, values[static_cast<size_t>(place)]);
        }
        payload.json.endObject();
    }
    return payload.finish(outcome);
}

Answer saveBatch(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    return eachOfBatch(table, query, true, [&](const RecordValues& values, Places* places) {
        const QVariant& id = values[static_cast<size_t>(table.idColumn)];
        Outcome outcome;
        // A passage that moves leaves a place behind, and that one has changed as well.
        if (store.mayExist(table, id))
            outcome = addStoredPlace(store, table, id, places);
        if (outcome.ok())
            outcome = store.save(table, values);
        if (outcome.ok())
            addSentPlace(table, values, places);
        return outcome;
    });
}

Answer removeBatch(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    return eachOfBatch(table, query, false, [&](const RecordValues& values, Places* places) {
        const QVariant& id = values[static_cast<size_t>(table.idColumn)];
        addSentPlace(table, values, places);
        Outcome outcome = addStoredPlace(store, table, id, places);
        if (outcome.ok())
            outcome = store.remove(table, id);
        return outcome;
    });
}

}  // namespace recordrequests
