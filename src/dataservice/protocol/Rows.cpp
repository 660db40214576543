#include "protocol/Rows.h"

#include "store/Scalar.h"

void writeValue(JsonWriter& json, FieldType type, const QVariant& value) {
    if (!value.isValid()) {
        json.null();
        return;
    }
    switch (type) {
    case FieldType::Integer:
        json.value(value.toLongLong());
        break;
    case FieldType::Boolean:
        json.value(value.toBool());
        break;
    case FieldType::Text:
    case FieldType::Color:
    case FieldType::Timestamp:
        json.value(value.toString());
        break;
    case FieldType::Scalar:
        // Read and written again: the file is not trusted to hold valid JSON.
        json.raw(scalar::toJson(scalar::fromJson(value.toString())).toUtf8());
        break;
    }
}

void writeFields(JsonWriter& json, const Table& table, const std::vector<int>& columns, const RowView& row) {
    for (size_t i = 0; i < columns.size(); ++i) {
        const Column& column = table.columns[static_cast<size_t>(columns[i])];
        json.key(column.jsonKey);
        writeValue(json, column.type, row.value(static_cast<int>(i)));
    }
}

void writeRow(JsonWriter& json, const Table& table, const std::vector<int>& columns, const RowView& row) {
    json.beginObject();
    writeFields(json, table, columns, row);
    json.endObject();
}
