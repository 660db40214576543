#pragma once

#include "store/Outcome.h"
#include "store/Table.h"

#include <QHash>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

class Database;
class Statement;

/// Values of a record in the order of its table's columns; an invalid one wasn't given. A `Scalar` is the
/// text of a JSON value.
using RecordValues = std::vector<QVariant>;

/// A row of an answer while it is visited. Columns stand in the order in which they were asked for.
class RowView {
public:
    explicit RowView(const Statement& statement) : m_statement(statement) {}
    QVariant value(int column) const;
    qint64 integer(int column) const;
    QString text(int column) const;

private:
    const Statement& m_statement;
};

using RowVisitor = std::function<void(const RowView&)>;

/// The rows that a list read wants.
struct Selection {
    const Table* table = nullptr;
    std::vector<int> columns;  ///< places in the table's columns
    struct Filter {
        int column;
        QVariant value;
    };
    std::vector<Filter> filters;  ///< all must be met
    bool windowed = false;        ///< only passages that intersect the window
    qint64 windowStart = 0;
    qint64 windowLength = -1;  ///< -1 for up to the end
};

/// A project in its file: reads, writes and transactions of records. Knows nothing of who asks. Bound to one
/// thread.
class ProjectStore {
public:
    /// Opens the file, or makes a new project where there is none. Null with a sentence in `message` on
    /// failure.
    static std::unique_ptr<ProjectStore> open(const QString& path, QString* message);
    /// Opens the file; a missing one is a failure.
    static std::unique_ptr<ProjectStore> openExisting(const QString& path, QString* message);
    /// Opens the file for a few reads, see projectfile.
    static std::unique_ptr<ProjectStore> openToLook(const QString& path, QString* message);
    /// An empty project in a new file that isn't in its place yet, see projectfile.
    static std::unique_ptr<ProjectStore> createAt(const QString& path, QString* message);
    /// Rolls back what wasn't committed.
    ~ProjectStore();

    const QString& path() const { return m_path; }
    /// Tells the file from others whatever its name.
    const QByteArray& identity() const { return m_identity; }
    /// False when the file was moved, removed or replaced since it was opened.
    bool isInPlace() const;

    Outcome begin();
    Outcome commit();
    void rollback();

    // Writes begin a transaction when none is open; the caller commits.

    /// Writes the given columns by the record's id and keeps all others. A new record is stamped: with the
    /// time it had before if the id was removed once, otherwise with the present. A timestamp that is given
    /// is taken for a new record.
    Outcome save(const Table& table, const RecordValues& values);

    /// Removes the record and keeps its timestamp in memory of its id. No failure when there is none.
    Outcome remove(const Table& table, const QVariant& id);

    /// The greatest id that a record of the kind ever had, after the next `reserve` were given away.
    Outcome lastId(wire::Record record, int reserve, qint64* id);

    /// Whether an id could be in use. Tells new records from changed ones without a read.
    bool mayExist(const Table& table, const QVariant& id) const;

    /// Visits the rows in the protocol's order.
    Outcome select(const Selection& selection, const RowVisitor& visit);

    /// The connection, for reads that join tables.
    Database& database() { return *m_database; }

private:
    ProjectStore(const QString& path, std::unique_ptr<Database> database);

    Outcome loadCounters();
    Outcome storeCounters();
    Outcome ensureTransaction();
    QString now();
    const QString& upsertText(const Table& table, const std::vector<int>& given, bool restore);

    QString m_path;
    QByteArray m_identity;
    std::unique_ptr<Database> m_database;
    bool m_inTransaction = false;
    qint64 m_foreignChanges = 0;

    struct Counter {
        qint64 lastId = 0;
        bool changed = false;
    };
    std::vector<Counter> m_counters;  ///< by record

    QHash<quint64, QString> m_upsertTexts;  ///< by table, given columns and restoring

    qint64 m_nowSecond = -1;
    QString m_now;
};
