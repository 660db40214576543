#include "project/FileCopies.h"

#include <QDebug>
#include <QFile>

namespace copies {

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

QString withProjectSuffix(const QString& path) {
    const QString suffix = QStringLiteral(".krn");
    return path.toLower().endsWith(suffix) ? path : path + suffix;
}

}  // namespace copies
