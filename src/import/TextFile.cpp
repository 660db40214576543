#include "import/TextFile.h"

#include "import/ImportLog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace textfile {

namespace {

Reading readPlainText(const QUrl& url) {
    QFile file(QFileInfo(url.toLocalFile()).absoluteFilePath());
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qCDebug(logFileImport) << "Cannot open file in read-only mode" << url;
        return {};
    }
    return {QString::fromUtf8(file.readAll()), QString()};
}

}  // namespace

Reading read(const QUrl& file) {
    const QString suffix = QFileInfo(file.toLocalFile()).suffix().toLower();
    if (suffix == QLatin1String("rtf") || suffix == QLatin1String("docx") || suffix == QLatin1String("pdf")) {
        const QString refusal = QCoreApplication::translate(
            "Import", "\"%1\" cannot be imported: only plain text files (*.txt) are supported yet.");
        return {QString(), refusal.arg(file.fileName())};
    }
    return readPlainText(file);
}

QStringList dialogPatterns() {
    return {QStringLiteral("*.txt")};
}

QStringList folderPatterns() {
    return {QStringLiteral("*.txt")};
}

QList<QUrl> importableFiles(const QUrl& folder) {
    QList<QUrl> urls;
    const QFileInfoList files =
        QDir(folder.toLocalFile()).entryInfoList(folderPatterns(), QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo& file : files)
        urls.append(QUrl::fromLocalFile(file.absoluteFilePath()));
    return urls;
}

QString titleFor(const QUrl& file) {
    const QString name = file.fileName();
    return name.left(name.lastIndexOf(QLatin1Char('.')));
}

}  // namespace textfile
