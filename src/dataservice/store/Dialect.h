#pragma once

#include "store/Outcome.h"

#include <QString>
#include <QVariant>
#include <vector>

class Database;

/// What this database system does in its own way. Nothing else in the store names it.
namespace dialect {

/// The mark of a project file.
constexpr quint32 applicationId = 0x4B524E31;

QString driverName();

/// Durability and trust of a connection that was just opened.
Outcome applySettings(Database& database);

/// From now on the connection changes nothing. A transaction that another program left behind is still
/// undone.
Outcome forbidWrites(Database& database);

/// The value in the form in which it comes back unchanged. Only half surrogate pairs, which are no text, are
/// replaced.
QVariant bound(const QVariant& value);

/// The text that was stored, from its bytes.
QString text(const QByteArray& bytes);

/// Starts a transaction that may write. Waits a bounded time for another program that holds the file.
QString beginText();

/// What the first bytes of a file tell, read without opening it as a database.
struct Header {
    enum class Kind { Missing, Empty, Foreign, Project };
    Kind kind = Kind::Missing;
    int version = 0;
};
Header readHeader(const QString& path);

/// Marks a new file as a project.
Outcome markAsProject(Database& database);
Outcome setVersion(Database& database, int version);

/// One thing that the file defines: a table, an index, a view.
struct SchemaEntry {
    QString type;
    QString name;
    QString text;
    bool operator==(const SchemaEntry& other) const;
};
/// Everything that the file defines, in the order of the names.
Outcome readSchema(Database& database, std::vector<SchemaEntry>* entries);

/// Whether the file's pages and indices are whole.
Outcome checkPages(Database& database);

/// A number that changes when another connection has written to the file.
qint64 foreignChanges(Database& database);

}  // namespace dialect
