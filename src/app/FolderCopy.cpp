#include "app/FolderCopy.h"

#include <QDir>
#include <QFileInfo>

namespace {

bool copyFile(const QString& source, const QString& target) {
    QFile existing(target);
    if (existing.exists()) {
        existing.setPermissions(existing.permissions() | QFileDevice::WriteOwner);
        existing.remove();
    }
    return QFile::copy(source, target);
}

bool copyEntries(const QString& source, const QString& target) {
    if (!QFileInfo(source).isDir())
        return copyFile(source, target);
    if (!QDir(target).exists() && !QFileInfo(target).dir().mkdir(QFileInfo(target).fileName()))
        return false;
    bool copied = true;
    const QStringList names =
        QDir(source).entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString& name : names)
        copied = copyEntries(source + QLatin1Char('/') + name, target + QLatin1Char('/') + name) && copied;
    return copied;
}

QString withSlash(const QString& path) {
    return path + QLatin1Char('/');
}

}  // namespace

bool copyRecursively(const QString& source, const QString& target) {
    const QString from = QFileInfo(source).canonicalFilePath();
    const QFileInfo to(target);
    const QString into = to.exists() ? to.canonicalFilePath() : to.dir().canonicalPath();
    if (from.isEmpty() || withSlash(into).startsWith(withSlash(from)))
        return false;
    return copyEntries(source, target);
}
