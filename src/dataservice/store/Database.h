#pragma once

#include "store/Outcome.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <memory>

class Database;

/// One run of a prepared statement. Gives the statement back when it goes out of scope.
class Statement {
public:
    Statement(Statement&& other) noexcept = default;
    Statement& operator=(Statement&&) = delete;
    ~Statement();

    /// Binds the next place.
    Statement& bind(const QVariant& value);
    /// False on failure; see `outcome`.
    bool run();
    bool next();
    /// Invalid for NULL. Text that was asked for as bytes is a text.
    QVariant value(int column) const;
    /// `Failed` when preparing, running or stepping went wrong.
    Outcome outcome() const;

private:
    friend class Database;
    Statement(std::shared_ptr<QSqlQuery> query, bool prepared);

    std::shared_ptr<QSqlQuery> m_query;
    int m_bound = 0;
    bool m_prepared;
};

/// One connection to a database of the store, with its prepared statements. Bound to one thread.
class Database {
public:
    /// Opens the file; null with a sentence in `message` when that fails. The dialect's settings are in
    /// force.
    static std::unique_ptr<Database> open(const QString& path, QString* message);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Prepares the text, or takes the statement that was prepared for it before.
    Statement statement(const QString& text);

    /// Runs a text that has no places for values.
    Outcome run(const QString& text);

    QSqlDatabase connection() const;

private:
    explicit Database(const QString& connectionName);

    QString m_connectionName;
    QHash<QString, std::shared_ptr<QSqlQuery>> m_statements;
};
