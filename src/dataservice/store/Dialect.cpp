#include "store/Dialect.h"

#include "store/Database.h"

#include <QFile>
#include <QtEndian>

namespace dialect {
namespace {

// Places in the header of a database file.
constexpr int headerSize = 100;
constexpr int writeVersionAt = 18;
constexpr int readVersionAt = 19;
constexpr int userVersionAt = 60;
constexpr int applicationIdAt = 68;
constexpr char rollbackJournal = 1;
const QByteArray magic("SQLite format 3\0", 16);

/// Half a surrogate pair is no character: the store would make something else of it and of its neighbour.
QString wellFormed(QString text) {
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (!unit.isSurrogate())
            continue;
        if (unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

Outcome readText(Database& database, const QString& question, QString* answer) {
    Statement statement = database.statement(question);
    if (statement.run() && statement.next())
        *answer = statement.value(0).toString();
    return statement.outcome();
}

}  // namespace

QString driverName() {
    return QStringLiteral("QSQLITE");
}

Outcome applySettings(Database& database) {
    // The file is foreign data until it was checked, so these two come before anything is read.
    for (const QString& text :
         {QStringLiteral("PRAGMA trusted_schema = OFF"), QStringLiteral("PRAGMA cell_size_check = ON"),
          QStringLiteral("PRAGMA busy_timeout = 5000"), QStringLiteral("PRAGMA temp_store = MEMORY"),
          QStringLiteral("PRAGMA mmap_size = 0"), QStringLiteral("PRAGMA synchronous = FULL")}) {
        const Outcome outcome = database.run(text);
        if (!outcome.ok())
            return outcome;
    }
    return Outcome::done();
}

Outcome forbidWrites(Database& database) {
    return database.run(QStringLiteral("PRAGMA query_only = ON"));
}

QVariant bound(const QVariant& value) {
    if (value.type() != QVariant::String)
        return value;
    const QString text = wellFormed(value.toString());
    // A byte order mark at the start of a text is taken for a mark and dropped: give it one to drop.
    if (!text.isEmpty() && (text[0] == QChar(0xFEFF) || text[0] == QChar(0xFFFE)))
        return QString(QChar(0xFEFF)) + text;
    // A null string would be bound as NULL: an empty text is a text.
    return text.isNull() ? QStringLiteral("") : text;
}

QString text(const QByteArray& bytes) {
    QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    // Taken for a mark and dropped here, too.
    if (bytes.startsWith("\xEF\xBB\xBF"))
        text.prepend(QChar(0xFEFF));
    return text.isNull() ? QStringLiteral("") : text;
}

QString beginText() {
    return QStringLiteral("BEGIN IMMEDIATE");
}

Header readHeader(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return {Header::Kind::Foreign, 0};
    const QByteArray bytes = file.read(headerSize);
    if (bytes.isEmpty())
        return {Header::Kind::Empty, 0};
    // A journal of the other kind keeps data in a side file, which a copy of the project would miss.
    if (bytes.size() < headerSize || !bytes.startsWith(magic) || bytes[writeVersionAt] != rollbackJournal ||
        bytes[readVersionAt] != rollbackJournal ||
        qFromBigEndian<quint32>(bytes.constData() + applicationIdAt) != applicationId)
        return {Header::Kind::Foreign, 0};
    return {Header::Kind::Project,
            static_cast<int>(qFromBigEndian<qint32>(bytes.constData() + userVersionAt))};
}

Outcome markAsProject(Database& database) {
    return database.run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId));
}

Outcome setVersion(Database& database, int version) {
    return database.run(QStringLiteral("PRAGMA user_version = %1").arg(version));
}

bool SchemaEntry::operator==(const SchemaEntry& other) const {
    return type == other.type && name == other.name && text == other.text;
}

Outcome readSchema(Database& database, std::vector<SchemaEntry>* entries) {
    Statement statement =
        database.statement(QStringLiteral("SELECT type, name, sql FROM sqlite_master ORDER BY name, type"));
    if (statement.run()) {
        while (statement.next()) {
            entries->push_back({statement.value(0).toString(), statement.value(1).toString(),
                                statement.value(2).toString()});
        }
    }
    return statement.outcome();
}

Outcome checkPages(Database& database) {
    QString answer;
    const Outcome outcome = readText(database, QStringLiteral("PRAGMA quick_check(1)"), &answer);
    if (!outcome.ok() || answer == QLatin1String("ok"))
        return outcome;
    return Outcome::failed(answer);
}

qint64 foreignChanges(Database& database) {
    QString answer;
    readText(database, QStringLiteral("PRAGMA data_version"), &answer);
    return answer.toLongLong();
}

}  // namespace dialect
