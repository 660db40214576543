#include "store/ProjectStore.h"

#include "store/Database.h"
#include "store/Dialect.h"
#include "store/ProjectFile.h"
#include "store/Sql.h"

#include <QDateTime>
#include <QFile>

QVariant RowView::value(int column) const {
    return m_statement.value(column);
}

qint64 RowView::integer(int column) const {
    return m_statement.value(column).toLongLong();
}

QString RowView::text(int column) const {
    return m_statement.value(column).toString();
}

std::unique_ptr<ProjectStore> ProjectStore::open(const QString& path, QString* message) {
    if (!QFile::exists(path)) {
        const Outcome outcome = projectfile::create(path);
        if (!outcome.ok()) {
            *message = outcome.message;
            return nullptr;
        }
    }
    return openExisting(path, message);
}

std::unique_ptr<ProjectStore> ProjectStore::openExisting(const QString& path, QString* message) {
    std::unique_ptr<Database> database = projectfile::open(path, message);
    if (!database)
        return nullptr;
    std::unique_ptr<ProjectStore> store(new ProjectStore(path, std::move(database)));
    const Outcome outcome = store->loadCounters();
    if (outcome.ok())
        return store;
    *message = outcome.message;
    return nullptr;
}

std::unique_ptr<ProjectStore> ProjectStore::openToLook(const QString& path, QString* message) {
    std::unique_ptr<Database> database = projectfile::openToLook(path, message);
    if (!database)
        return nullptr;
    return std::unique_ptr<ProjectStore>(new ProjectStore(path, std::move(database)));
}

std::unique_ptr<ProjectStore> ProjectStore::createAt(const QString& path, QString* message) {
    std::unique_ptr<Database> database = projectfile::createAt(path, message);
    if (!database)
        return nullptr;
    return std::unique_ptr<ProjectStore>(new ProjectStore(path, std::move(database)));
}

ProjectStore::ProjectStore(const QString& path, std::unique_ptr<Database> database)
    : m_path(path), m_identity(projectfile::identity(path)), m_database(std::move(database)),
      m_foreignChanges(dialect::foreignChanges(*m_database)), m_counters(wire::allRecords().size()) {}

ProjectStore::~ProjectStore() {
    rollback();
}

bool ProjectStore::isInPlace() const {
    return projectfile::identity(m_path) == m_identity;
}

Outcome ProjectStore::begin() {
    // What is written to a file that lost its name would be lost with the last program that has it open.
    if (!isInPlace()) {
        return Outcome::refused(
            QStringLiteral("The project file \"%1\" was moved or replaced while it was open.").arg(m_path));
    }
    const Outcome outcome = m_database->run(dialect::beginText());
    if (!outcome.ok())
        return outcome;
    m_inTransaction = true;
    const qint64 changes = dialect::foreignChanges(*m_database);
    if (changes == m_foreignChanges)
        return outcome;
    m_foreignChanges = changes;
    return loadCounters();
}

Outcome ProjectStore::commit() {
    if (!m_inTransaction)
        return Outcome::done();
    Outcome outcome = storeCounters();
    if (outcome.ok())
        outcome = m_database->run(QStringLiteral("COMMIT"));
    if (outcome.ok())
        m_inTransaction = false;
    else
        rollback();
    return outcome;
}

void ProjectStore::rollback() {
    if (!m_inTransaction)
        return;
    m_inTransaction = false;
    m_database->run(QStringLiteral("ROLLBACK"));
    loadCounters();
}

Outcome ProjectStore::ensureTransaction() {
    return m_inTransaction ? Outcome::done() : begin();
}

Outcome ProjectStore::save(const Table& table, const RecordValues& values) {
    Outcome outcome = ensureTransaction();
    if (!outcome.ok())
        return outcome;
    const QVariant& id = values[static_cast<size_t>(table.idColumn)];
    std::vector<int> given;
    for (size_t i = 0; i < table.columns.size(); ++i) {
        if (values[i].isValid() && table.columns[i].sent)
            given.push_back(static_cast<int>(i));
    }
    const QVariant timestamp =
        table.hasTimestamp() ? values[static_cast<size_t>(table.timestampColumn)] : QVariant();
    const bool restore = table.hasTimestamp() && !timestamp.isValid() && mayExist(table, id);
    Statement statement = m_database->statement(upsertText(table, given, restore));
    for (int place : given)
        statement.bind(values[static_cast<size_t>(place)]);
    if (restore)
        statement.bind(wire::word(table.record)).bind(id);
    if (table.hasTimestamp())
        statement.bind(timestamp.isValid() ? timestamp : QVariant(now()));
    statement.run();
    outcome = statement.outcome();
    if (outcome.ok() && !table.hasTextId()) {
        Counter& counter = m_counters[static_cast<size_t>(table.record)];
        if (id.toLongLong() > counter.lastId)
            counter = {id.toLongLong(), true};
    }
    return outcome;
}

Outcome ProjectStore::remove(const Table& table, const QVariant& id) {
    Outcome outcome = ensureTransaction();
    if (outcome.ok() && table.hasTimestamp()) {
        Statement remember = m_database->statement(sql::rememberTimestamp(table));
        remember.bind(wire::word(table.record)).bind(id).run();
        outcome = remember.outcome();
    }
    if (!outcome.ok())
        return outcome;
    Statement statement = m_database->statement(sql::remove(table));
    statement.bind(id).run();
    return statement.outcome();
}

Outcome ProjectStore::lastId(wire::Record record, int reserve, qint64* id) {
    Counter& counter = m_counters[static_cast<size_t>(record)];
    Outcome outcome;
    if (reserve > 0) {
        outcome = ensureTransaction();
        if (outcome.ok())
            counter = {counter.lastId + reserve, true};
    } else if (!m_inTransaction) {
        const qint64 changes = dialect::foreignChanges(*m_database);
        if (changes != m_foreignChanges) {
            m_foreignChanges = changes;
            outcome = loadCounters();
        }
    }
    *id = counter.lastId;
    return outcome;
}

bool ProjectStore::mayExist(const Table& table, const QVariant& id) const {
    return table.hasTextId() || id.toLongLong() <= m_counters[static_cast<size_t>(table.record)].lastId;
}

Outcome ProjectStore::select(const Selection& selection, const RowVisitor& visit) {
    sql::Select what{selection.table, selection.columns, {}};
    for (const Selection::Filter& filter : selection.filters)
        what.conditions << sql::equals(selection.table->columns[static_cast<size_t>(filter.column)].name);
    const bool bounded = selection.windowed && selection.windowLength >= 0;
    if (selection.windowed)
        what.conditions << QStringLiteral("t.\"start\" + t.\"length\" > ?");
    if (bounded)
        what.conditions << QStringLiteral("t.\"start\" < ?");
    Statement statement = m_database->statement(sql::select(what));
    for (const Selection::Filter& filter : selection.filters)
        statement.bind(filter.value);
    if (selection.windowed)
        statement.bind(selection.windowStart);
    if (bounded)
        statement.bind(selection.windowStart + selection.windowLength);
    if (statement.run()) {
        const RowView row(statement);
        while (statement.next())
            visit(row);
    }
    return statement.outcome();
}

Outcome ProjectStore::loadCounters() {
    for (wire::Record record : wire::allRecords()) {
        const Table& table = tableOf(record);
        if (table.hasTextId())
            continue;
        // Files that weren't written by this program's own counting still never get an id twice.
        Statement statement = m_database->statement(
            QStringLiteral("SELECT COALESCE(MAX(\"id\"), 0), COALESCE((SELECT \"lastId\" FROM ") +
            sql::counterTable + QStringLiteral(" WHERE \"record\" = ?), 0) FROM ") + table.name);
        if (statement.bind(wire::word(record)).run() && statement.next()) {
            m_counters[static_cast<size_t>(record)] = {
                qMax(statement.value(0).toLongLong(), statement.value(1).toLongLong()), false};
        }
        const Outcome outcome = statement.outcome();
        if (!outcome.ok())
            return outcome;
    }
    return Outcome::done();
}

Outcome ProjectStore::storeCounters() {
    for (wire::Record record : wire::allRecords()) {
        Counter& counter = m_counters[static_cast<size_t>(record)];
        if (!counter.changed)
            continue;
        Statement statement = m_database->statement(
            QStringLiteral("INSERT INTO ") + sql::counterTable +
            QStringLiteral(
                " (\"record\", \"lastId\") VALUES (?, ?) ON CONFLICT(\"record\") DO UPDATE SET \"lastId\" = "
                "excluded.\"lastId\""));
        statement.bind(wire::word(record)).bind(counter.lastId).run();
        const Outcome outcome = statement.outcome();
        if (!outcome.ok())
            return outcome;
        counter.changed = false;
    }
    return Outcome::done();
}

const QString& ProjectStore::upsertText(const Table& table, const std::vector<int>& given, bool restore) {
    // Building the text takes longer than running it.
    quint64 key = restore ? 1 : 0;
    for (int place : given)
        key |= quint64(2) << place;
    key |= static_cast<quint64>(table.record) << 32;
    QString& text = m_upsertTexts[key];
    if (text.isEmpty())
        text = sql::upsert(table, given, restore);
    return text;
}

QString ProjectStore::now() {
    const QDateTime present = QDateTime::currentDateTimeUtc();
    const qint64 second = present.toSecsSinceEpoch();
    if (second != m_nowSecond) {
        m_nowSecond = second;
        m_now = present.toString(Qt::ISODate);
    }
    return m_now;
}
