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
    faults->insert(faults->end(), arguments.faults.begin(), arguments.faults.end());
    return batch;
}

/// Does `work` with each record of the batch, up to the first that fails.
template <typename Work> Outcome eachOf(const std::vector<RecordValues>& batch, const Work& work) {
    Outcome outcome;
    for (const RecordValues& values : batch) {
        outcome = work(values);
        if (!outcome.ok())
            break;
    }
    return outcome;
}

/// A batch of passages: `work` gathers the places that each touches.
template <typename Work>
Answer eachPassage(const Table& table, const wire::ParsedQuery& query, bool saving, const Work& work) {
    std::vector<Fault> faults;
    const std::vector<RecordValues> batch = batchValues(table, query, saving, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    Places places;
    const Outcome outcome = eachOf(batch, [&](const RecordValues& values) { return work(values, &places); });
    return finishBatch(query, outcome, places);
}

const QVariant& idOf(const Table& table, const RecordValues& values) {
    return values[static_cast<size_t>(table.idColumn)];
}

/// The stored record of an id, with the requested fields.
Selection selectionOf(const Table& table, const wire::ParsedQuery& query, std::vector<Fault>* faults) {
    Selection selection;
    selection.table = &table;
    selection.columns = requestedColumns(table, query.fields, faults);
    selection.filters = {{table.idColumn, {}}};
    return selection;
}

/// Writes the record as it is then stored.
Outcome saveOne(ProjectStore& store, Selection& selection, const RecordValues& values, JsonWriter& json) {
    const Table& table = *selection.table;
    const Outcome outcome = store.save(table, values);
    if (!outcome.ok())
        return outcome;
    selection.filters.front().value = idOf(table, values);
    return store.select(selection,
                        [&](const RowView& row) { writeRow(json, table, selection.columns, row); });
}

/// Writes the record as it was stored; what was sent when there was none.
Outcome removeOne(ProjectStore& store, Selection& selection, const RecordValues& values, JsonWriter& json) {
    const Table& table = *selection.table;
    selection.filters.front().value = idOf(table, values);
    bool found = false;
    const Outcome outcome = store.select(selection, [&](const RowView& row) {
        writeRow(json, table, selection.columns, row);
        found = true;
    });
    if (outcome.ok() && found)
        return store.remove(table, idOf(table, values));
    json.beginObject();
    for (int place : selection.columns) {
        const Column& column = table.columns[static_cast<size_t>(place)];
        json.key(column.name);
        writeValue(json, column.type, values[static_cast<size_t>(place)]);
    }
    json.endObject();
    return outcome;
}

using One = Outcome (*)(ProjectStore&, Selection&, const RecordValues&, JsonWriter&);

Answer single(ProjectStore& store, const Table& table, const wire::ParsedQuery& query, bool saving,
              One work) {
    std::vector<Fault> faults;
    Selection selection = selectionOf(table, query, &faults);
    const RecordValues values = recordValues(table, query.arguments, query.position, &faults);
    if (saving)
        checkNewId(table, values, query.position, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    DataPayload payload(query.operation);
    const Outcome outcome = work(store, selection, values, payload.json);
    return payload.finish(outcome);
}

/// A batch that is answered with its records.
Answer many(ProjectStore& store, const Table& table, const wire::ParsedQuery& query, bool saving, One work) {
    std::vector<Fault> faults;
    Selection selection = selectionOf(table, query, &faults);
    const std::vector<RecordValues> batch = batchValues(table, query, saving, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    DataPayload payload(query.operation);
    payload.json.beginObject().key(wire::batchArgument(table.record)).beginArray();
    const Outcome outcome = eachOf(
        batch, [&](const RecordValues& values) { return work(store, selection, values, payload.json); });
    payload.json.endArray().endObject();
    return payload.finish(outcome);
}

}  // namespace

Answer save(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    return single(store, table, query, true, saveOne);
}

Answer remove(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    return single(store, table, query, false, removeOne);
}

Answer saveBatch(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    if (!wire::isAnsweredWithPlaces(table.record))
        return many(store, table, query, true, saveOne);
    return eachPassage(table, query, true, [&](const RecordValues& values, Places* places) {
        const QVariant& id = idOf(table, values);
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
    if (!wire::isAnsweredWithPlaces(table.record))
        return many(store, table, query, false, removeOne);
    return eachPassage(table, query, false, [&](const RecordValues& values, Places* places) {
        const QVariant& id = idOf(table, values);
        addSentPlace(table, values, places);
        Outcome outcome = addStoredPlace(store, table, id, places);
        if (outcome.ok())
            outcome = store.remove(table, id);
        return outcome;
    });
}

}  // namespace recordrequests
