#pragma once

#include "store/Table.h"

#include <QString>
#include <QStringList>

/// SQL texts made of the tables' descriptions. Values never stand in them, only places for values.
namespace sql {

/// The name in double quotes.
QString quoted(const QString& name);

/// The text of a column as it lies in the file. `Statement` gives it back as a text.
QString asBytes(const QString& expression);

/// A filter `column = ?`.
QString equals(const QString& column);

struct Select {
    const Table* table = nullptr;
    std::vector<int> columns;  ///< places in the table's columns
    QStringList conditions;    ///< SQL, joined by AND
};

/// The rows in the protocol's order: by id, passages by start, longer first, then id.
QString select(const Select& what);

/// Writes the columns `given` (places; the id among them) of one record by its id, keeping all others.
/// Places for values: the given columns in the table's order, then for tables with a timestamp the
/// time of creation. With `restore` the record's remembered time goes first, and the places of its word and
/// its id stand before that of the time.
QString upsert(const Table& table, const std::vector<int>& given, bool restore);

/// Puts a removed record's time aside. Places for values: the record's word, the id.
QString rememberTimestamp(const Table& table);

/// Place for a value: the id.
QString remove(const Table& table);

/// Tables of the store's own.
extern const QString counterTable;  ///< the greatest id that a record ever had, by the record's word
extern const QString removedTable;  ///< times of removed records, by word and id

}  // namespace sql
