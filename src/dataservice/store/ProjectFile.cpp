#include "store/ProjectFile.h"

#include "store/Database.h"
#include "store/Dialect.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#ifdef Q_OS_UNIX
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace projectfile {
namespace {

QString refusal(const QString& path, const QString& why) {
    return QStringLiteral("The project file \"%1\" can't be opened. %2").arg(path, why);
}

std::unique_ptr<Database> refuse(const QString& path, const QString& why, QString* message) {
    *message = refusal(path, why);
    return nullptr;
}

#ifdef Q_OS_UNIX
bool syncPath(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool synced = ::fsync(file) == 0;
    ::close(file);
    return synced;
}

bool replaceFile(const QString& from, const QString& to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}
#else
bool syncPath(const QString&) {
    return true;
}

bool replaceFile(const QString& from, const QString& to) {
    return (!QFile::exists(to) || QFile::remove(to)) && QFile::rename(from, to);
}
#endif

/// A project file of a known version that defines nothing but what such a file does.
std::unique_ptr<Database> openKnown(const QString& path, const Migrations& history, int* version,
                                    QString* message) {
    const int newest = static_cast<int>(history.size());
    dialect::Header header = dialect::readHeader(path);
    using Kind = dialect::Header::Kind;
    if (header.kind == Kind::Missing)
        return refuse(path, QStringLiteral("It doesn't exist."), message);
    if (header.kind == Kind::Empty || header.kind == Kind::Foreign)
        return refuse(path, QStringLiteral("It isn't a Kernova project, or it can't be read."), message);
    if (header.version > newest) {
        return refuse(path,
                      QStringLiteral("It was written by a newer version of Kernova (%1; this one knows %2).")
                          .arg(header.version)
                          .arg(newest),
                      message);
    }
    if (header.version < 1)
        return refuse(path, QStringLiteral("It isn't complete."), message);
    std::unique_ptr<Database> database = Database::open(path, message);
    if (!database)
        return refuse(path, *message, message);
    // At the first read a transaction that a crash cut off is undone: with a migration, the version, too.
    dialect::foreignChanges(*database);
    header = dialect::readHeader(path);
    const Outcome outcome = checkSchema(*database, history, header.version);
    if (!outcome.ok())
        return refuse(path, outcome.message, message);
    *version = header.version;
    return database;
}

}  // namespace

std::unique_ptr<Database> open(const QString& path, QString* message, const Migrations& history) {
    int version = 0;
    std::unique_ptr<Database> database = openKnown(path, history, &version, message);
    if (!database)
        return nullptr;
    Outcome outcome = dialect::checkPages(*database);
    if (!outcome.ok())
        outcome.message = QStringLiteral("It is damaged: %1").arg(outcome.message);
    else
        outcome = migrate(*database, history, version, static_cast<int>(history.size()));
    if (!outcome.ok())
        return refuse(path, outcome.message, message);
    return database;
}

std::unique_ptr<Database> openToLook(const QString& path, QString* message) {
    // The check of all pages keeps damage from spreading by later writes. Here none follow, and the schema's
    // own pages and the few that are read are checked as they are read: a damaged one is a failed read.
    int version = 0;
    std::unique_ptr<Database> database = openKnown(path, migrations(), &version, message);
    if (!database)
        return nullptr;
    const Outcome outcome = dialect::forbidWrites(*database);
    if (!outcome.ok())
        return refuse(path, outcome.message, message);
    return database;
}

std::unique_ptr<Database> createAt(const QString& path, QString* message) {
    if (QFile::exists(path))
        return refuse(path, QStringLiteral("It exists already."), message);
    std::unique_ptr<Database> database = Database::open(path, message);
    Outcome outcome = database ? dialect::markAsProject(*database) : Outcome::failed(*message);
    if (outcome.ok())
        outcome = migrate(*database, migrations(), 0, static_cast<int>(migrations().size()));
    if (outcome.ok())
        return database;
    database.reset();
    QFile::remove(path);
    *message = QStringLiteral("The project file \"%1\" can't be made. %2").arg(path, outcome.message);
    return nullptr;
}

QString temporaryNameBeside(const QString& path) {
    const QFileInfo info(path);
    const QString unique = QUuid::createUuid().toString(QUuid::Id128).left(12);
    return info.absolutePath() + QStringLiteral("/.") + info.fileName() + QLatin1Char('.') + unique +
           QStringLiteral(".tmp");
}

Outcome moveIntoPlace(const QString& temporary, const QString& path) {
    // What a crash left beside the name belongs to the file that had it: it would be played into the new one.
    // It goes before the new file comes, and comes back when that fails.
    const QString setAside = temporary + QStringLiteral(".former");
    const QStringList sideFiles{QStringLiteral("-journal"), QStringLiteral("-wal")};
    for (const QString& suffix : sideFiles)
        QFile::rename(path + suffix, setAside + suffix);
    const bool placed = syncPath(temporary) && replaceFile(temporary, path);
    for (const QString& suffix : sideFiles)
        placed ? QFile::remove(setAside + suffix) : QFile::rename(setAside + suffix, path + suffix);
    if (!placed) {
        QFile::remove(temporary);
        return Outcome::failed(QStringLiteral("The project file \"%1\" can't be written.").arg(path));
    }
    // The new name itself has to reach the disk, too.
    syncPath(QFileInfo(path).absolutePath());
    return Outcome::done();
}

Outcome create(const QString& path) {
    const QString temporary = temporaryNameBeside(path);
    QString message;
    std::unique_ptr<Database> database = createAt(temporary, &message);
    if (!database)
        return Outcome::failed(message);
    database.reset();
    return moveIntoPlace(temporary, path);
}

#ifdef Q_OS_UNIX
QByteArray identity(const QString& path) {
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return QByteArray::number(static_cast<qulonglong>(status.st_dev)) + ':' +
           QByteArray::number(static_cast<qulonglong>(status.st_ino));
}
#else
QByteArray identity(const QString& path) {
    const QFileInfo info(path);
    return info.exists() ? info.canonicalFilePath().toUtf8() : QByteArray();
}
#endif

}  // namespace projectfile
