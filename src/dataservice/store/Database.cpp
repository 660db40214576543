#include "store/Database.h"

#include "store/Dialect.h"

#include <QSqlError>
#include <QUuid>

namespace {

// Requested fields may come in any combination, so the number of texts has no other bound.
constexpr int maxKeptStatements = 256;

}  // namespace

Statement::Statement(std::shared_ptr<QSqlQuery> query, bool prepared)
    : m_query(std::move(query)), m_prepared(prepared) {}

Statement::~Statement() {
    if (m_query)
        m_query->finish();
}

Statement& Statement::bind(const QVariant& value) {
    m_query->bindValue(m_bound++, dialect::bound(value));
    return *this;
}

bool Statement::run() {
    return m_prepared && m_query->exec();
}

bool Statement::next() {
    return m_query->next();
}

QVariant Statement::value(int column) const {
    const QVariant value = m_query->value(column);
    return value.type() == QVariant::ByteArray ? QVariant(dialect::text(value.toByteArray())) : value;
}

Outcome Statement::outcome() const {
    const QSqlError error = m_query->lastError();
    if (m_prepared && !error.isValid())
        return Outcome::done();
    return Outcome::failed(
        QStringLiteral("The project file could not be used: %1.").arg(error.databaseText()));
}

std::unique_ptr<Database> Database::open(const QString& path, QString* message) {
    std::unique_ptr<Database> database(new Database(QUuid::createUuid().toString()));
    QSqlDatabase connection = QSqlDatabase::addDatabase(dialect::driverName(), database->m_connectionName);
    connection.setDatabaseName(path);
    Outcome outcome;
    if (!connection.open())
        outcome = Outcome::failed(connection.lastError().databaseText());
    else
        outcome = dialect::applySettings(*database);
    if (outcome.ok())
        return database;
    *message = outcome.message;
    return nullptr;
}

Database::Database(const QString& connectionName) : m_connectionName(connectionName) {}

Database::~Database() {
    m_statements.clear();
    connection().close();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QSqlDatabase Database::connection() const {
    return QSqlDatabase::database(m_connectionName, false);
}

Statement Database::statement(const QString& text) {
    const auto found = m_statements.constFind(text);
    const bool known = found != m_statements.constEnd();
    // One that is being stepped through right now can't be lent a second time.
    if (known && found->use_count() == 1)
        return {*found, true};
    auto query = std::make_shared<QSqlQuery>(connection());
    query->setForwardOnly(true);
    const bool prepared = query->prepare(text);
    if (prepared && !known) {
        if (m_statements.size() >= maxKeptStatements)
            m_statements.clear();
        m_statements.insert(text, query);
    }
    return {query, prepared};
}

Outcome Database::run(const QString& text) {
    QSqlQuery query(connection());
    query.setForwardOnly(true);
    if (query.exec(text))
        return Outcome::done();
    return Outcome::failed(
        QStringLiteral("The project file could not be used: %1.").arg(query.lastError().databaseText()));
}
