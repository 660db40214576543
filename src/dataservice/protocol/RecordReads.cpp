#include "protocol/Arguments.h"
#include "protocol/RecordRequests.h"
#include "protocol/Rows.h"

namespace recordrequests {
namespace {

/// Any stored field may be asked for by its value. A key of the metadata is asked for by its name.
std::vector<Selection::Filter> filters(const Table& table, const wire::ParsedQuery& query,
                                       const QStringList& others, std::vector<Fault>* faults) {
    std::vector<Selection::Filter> found;
    for (const wire::QueryArgument& argument : query.arguments) {
        if (others.contains(argument.name))
            continue;
        const bool keyName =
            table.record == wire::Record::SourceMetadataKey && argument.name == QLatin1String("name");
        const int place = table.indexOf(keyName ? QStringLiteral("key") : argument.name);
        if (place < 0 || table.columns[static_cast<size_t>(place)].joined) {
            faults->push_back(
                {QStringLiteral("There is no argument \"%1\".").arg(argument.name), argument.position});
            continue;
        }
        found.push_back({place, columnValue(table.columns[static_cast<size_t>(place)], argument, faults)});
    }
    return found;
}

Answer writeList(ProjectStore& store, const Selection& selection, const QString& operation) {
    DataPayload payload(operation);
    payload.json.beginArray();
    const Outcome outcome = store.select(selection, [&](const RowView& row) {
        writeRow(payload.json, *selection.table, selection.columns, row);
    });
    payload.json.endArray();
    return payload.finish(outcome);
}

}  // namespace

Answer list(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    std::vector<Fault> faults;
    Selection selection;
    selection.table = &table;
    selection.columns = requestedColumns(table, query.fields, &faults);
    selection.filters = filters(table, query, {}, &faults);
    if (!faults.empty())
        return Answer::refused(faults);
    return writeList(store, selection, query.operation);
}

Answer listInWindow(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    const QString offset = QStringLiteral("sourceOffset");
    const QString length = QStringLiteral("sourceLength");
    Arguments arguments(query);
    Selection selection;
    selection.table = &table;
    selection.windowed = true;
    selection.windowStart = arguments.integer(offset);
    selection.windowLength = arguments.integer(length, -1);
    selection.columns = requestedColumns(table, query.fields, &arguments.faults);
    selection.filters = filters(table, query, {offset, length}, &arguments.faults);
    if (!arguments.faults.empty())
        return Answer::refused(arguments.faults);
    return writeList(store, selection, query.operation);
}

Answer byId(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    Arguments arguments(query);
    const QString name = table.id().name;
    const QVariant id =
        table.hasTextId() ? QVariant(arguments.text(name)) : QVariant(arguments.integer(name));
    Selection selection;
    selection.table = &table;
    selection.columns = requestedColumns(table, query.fields, &arguments.faults);
    selection.filters = {{table.idColumn, id}};
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    DataPayload payload(query.operation);
    bool found = false;
    const Outcome outcome = store.select(selection, [&](const RowView& row) {
        writeRow(payload.json, table, selection.columns, row);
        found = true;
    });
    if (!found)
        payload.json.null();
    return payload.finish(outcome);
}

Answer maxId(ProjectStore& store, const Table& table, const wire::ParsedQuery& query) {
    Arguments arguments(query);
    const bool reserves = arguments.boolean(QStringLiteral("next"), false);
    const qint64 count = arguments.integer(wire::name::count, 1);
    if (count < 1 || count > wire::maxReservedIds)
        arguments.faults.push_back(
            {QStringLiteral("\"count\" has to be from 1 to %1.").arg(wire::maxReservedIds), query.position});
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    qint64 id = 0;
    const Outcome outcome = store.lastId(table.record, reserves ? static_cast<int>(count) : 0, &id);
    DataPayload payload(query.operation);
    payload.json.value(id);
    return payload.finish(outcome);
}

}  // namespace recordrequests
