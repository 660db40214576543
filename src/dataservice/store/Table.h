#pragma once

#include "records/RecordFields.h"
#include "wire/Operations.h"

#include <QString>
#include <vector>

/// A column of a project's table, derived from a field of the record.
struct Column {
    QString name;      ///< on the wire and in the table
    QString roleName;  ///< how the record's variant map calls it
    FieldType type = FieldType::Integer;
    bool sent = false;    ///< a mutation's argument
    bool joined = false;  ///< read from another table, never stored
    QByteArray jsonKey;   ///< how an object's member of this name begins: `"name":`
};

/// A table of the project file: one for each record of the protocol.
struct Table {
    wire::Record record = wire::Record::Kerno;
    QString name;
    std::vector<Column> columns;  ///< in the order of the record's field table, fields of the client left out
    int idColumn = 0;             ///< place of the key in `columns`
    int timestampColumn = -1;     ///< -1 for records without one

    const Column& id() const { return columns[static_cast<size_t>(idColumn)]; }
    bool hasTextId() const { return id().type == FieldType::Text; }
    bool hasTimestamp() const { return timestampColumn >= 0; }

    /// Whether records of this table lie in an answer, and so are ordered by their place in it.
    bool isPassage() const;

    /// The column's place by its name on the wire, or -1.
    int indexOf(const QString& columnName) const;
};

/// The table of a record. Built once.
const Table& tableOf(wire::Record record);
