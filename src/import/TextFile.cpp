#include "import/TextFile.h"

#include "import/DOCXTextExtractor.h"
#include "import/ImportLog.h"
#include "import/ImportedText.h"
#include "import/PDFTextExtractor.h"
#include "import/RtfText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <iterator>

namespace textfile {

namespace {

using Cancelled = std::function<bool()>;

// More than the text of any source; reading it would only fill the memory.
constexpr qint64 mostTextBytes = qint64(256) << 20;

QString readPlainText(const QString& path, const Cancelled&) {
    QFile file(path);
    // Anything but a file, such as a pipe, could have the reading wait for ever.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > mostTextBytes) {
        qCDebug(logFileImport) << "Cannot open file in read-only mode" << QUrl::fromLocalFile(path);
        return {};
    }
    return withLineFeeds(QString::fromUtf8(file.readAll()));
}

QString readRtf(const QString& path, const Cancelled&) {
    return rtfToRichText(path);
}

QString readDocx(const QString& path, const Cancelled&) {
    return DOCXTextExtractor(path).extract();
}

QString readPdf(const QString& path, const Cancelled& cancelled) {
    return PDFTextExtractor(path).extract(cancelled);
}

struct Kind {
    const char* suffix;
    QString (*read)(const QString& path, const Cancelled& cancelled);
    bool inFolders;     // taken up by the import of a folder
    int placeInFilter;  // in the dialog that asks for several files
};

constexpr Kind kinds[] = {
    {"txt", readPlainText, true, 0},
    {"rtf", readRtf, true, 2},
    {"docx", readDocx, true, 1},
    {"pdf", readPdf, false, 3},
};

QString patternOf(const Kind& kind) {
    return QLatin1String("*.") + QLatin1String(kind.suffix);
}

}  // namespace

QString read(const QUrl& file, const Cancelled& cancelled) {
    const QFileInfo info(file.toLocalFile());
    const QString suffix = info.suffix().toLower();
    const auto* const kind = std::find_if(std::begin(kinds), std::end(kinds), [&suffix](const Kind& row) {
        return suffix == QLatin1String(row.suffix);
    });
    const auto readKind = kind == std::end(kinds) ? readPlainText : kind->read;
    return readKind(info.absoluteFilePath(), cancelled);
}

QStringList suffixes() {
    QStringList all;
    for (const Kind& kind : kinds)
        all << QLatin1String(kind.suffix);
    return all;
}

QString singleFileFilter() {
    QStringList patterns;
    for (const Kind& kind : kinds)
        patterns << patternOf(kind);
    return QLatin1Char('(') + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

QString multipleFilesFilter() {
    QMap<int, QString> patterns;
    for (const Kind& kind : kinds)
        patterns.insert(kind.placeInFilter, patternOf(kind));
    return QStringList(patterns.values()).join(QLatin1Char(' '));
}

QList<QUrl> importableFiles(const QUrl& folder) {
    QStringList patterns;
    for (const Kind& kind : kinds) {
        if (kind.inFolders)
            patterns << patternOf(kind);
    }
    const QFileInfoList files =
        QDir(folder.toLocalFile()).entryInfoList(patterns, QDir::Files | QDir::Readable, QDir::Name);
    QList<QUrl> urls;
    for (const QFileInfo& file : files)
        urls.append(QUrl::fromLocalFile(file.absoluteFilePath()));
    return urls;
}

QString titleFor(const QUrl& file) {
    const QString name = file.fileName();
    return name.left(name.lastIndexOf(QLatin1Char('.')));
}

}  // namespace textfile
