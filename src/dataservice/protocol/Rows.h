#pragma once

#include "store/ProjectStore.h"
#include "wire/JsonWriter.h"

#include <vector>

/// One value of a column in its JSON form; null for an invalid one.
void writeValue(JsonWriter& json, FieldType type, const QVariant& value);

/// The members of a row's object.
void writeFields(JsonWriter& json, const Table& table, const std::vector<int>& columns, const RowView& row);

/// A row as an object; `columns` are the places in the table in the order of the row.
void writeRow(JsonWriter& json, const Table& table, const std::vector<int>& columns, const RowView& row);
