#include "project/FileCopies.h"

#include <QDebug>
#include <QFile>
#include <QSaveFile>

namespace copies {

namespace {

constexpr qint64 blockSize = 1 << 20;  // bytes

}  // namespace

bool replaceBackup(const QString& path) {
    const QString backup = path + QStringLiteral(".bak");
    const QString former = backup + QStringLiteral(".tmp");
    if (QFile::exists(backup)) {
        QFile::remove(former);
        QFile::rename(backup, former);
    }
    const bool copied = QFile::copy(path, backup);
    if (copied) {
        QFile::remove(former);
    } else {
        qDebug() << "failed to create backup";
        if (QFile::exists(former))
            QFile::rename(former, backup);
    }
    return copied;
}

bool replace(const QString& path, const QString& target) {
    QFile source(path);
    QSaveFile copy(target);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly))
        return false;
    QByteArray block;
    do {
        block = source.read(blockSize);
        if (copy.write(block) != block.size())
            return false;
    } while (!block.isEmpty());
    // What a crash left of the former file would be rolled back into the copy. It goes before the copy comes,
    // and comes back when that fails.
    const QString journal = target + QStringLiteral("-journal");
    const QString setAside = journal + QStringLiteral(".former");
    QFile::remove(setAside);
    QFile::rename(journal, setAside);
    const bool placed = source.error() == QFileDevice::NoError && copy.commit();
    placed ? QFile::remove(setAside) : QFile::rename(setAside, journal);
    return placed;
}

QString withProjectSuffix(const QString& path) {
    const QString suffix = QStringLiteral(".krn");
    return path.toLower().endsWith(suffix) ? path : path + suffix;
}

}  // namespace copies
