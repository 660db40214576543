#include "import/PDFTextExtractor.h"
#include "import/RtfText.h"
#include "import/SourceImport.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "undo/UndoManager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>

// What importing costs: many text files into a project at the real service, a long PDF against its converter
// alone, and a long RTF document.

namespace {

constexpr int fileCount = 200;
constexpr int fileBytes = 50000;
constexpr int pageCount = 300;
constexpr int linesOnPage = 45;
constexpr int rtfParagraphs = 20000;

const QString sentence =
    QStringLiteral("And then we moved to the house by the river, which my aunt had left us. ");

template <typename Work> double seconds(Work work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

QUrl write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the files of the benchmark");
    return QUrl::fromLocalFile(path);
}

void importManyFiles(const QTemporaryDir& folder) {
    const auto file = std::make_unique<KRNFile>(nullptr);
    file->initModels();
    UndoManager undo(file.get());
    const QJsonObject project{{QStringLiteral("name"), folder.filePath(QStringLiteral("project.krn"))}};
    if (!file->dataHelper()->connection()->connect(false) ||
        !file->openProject(project, true, QString(), true))
        qFatal("the project does not open");
    const QByteArray text = sentence.toUtf8().repeated(fileBytes / sentence.size() + 1).left(fileBytes);
    QList<QUrl> files;
    for (int i = 0; i < fileCount; ++i)
        files << write(folder.filePath(QStringLiteral("Interview %1.txt").arg(i)), text);
    int imported = 0;
    const SourceImport import(&undo, file.get());
    const double took = seconds([&] {
        imported = import.importFiles(files, QString(), QString(), false);
        // A read is answered after all that was sent before is stored.
        file->getPreference(QStringLiteral("none"));
        QCoreApplication::processEvents();
    });
    std::printf("%d of %d text files of %d kB, stored and in the list (%d): %.2f s\n", imported, fileCount,
                fileBytes / 1000, file->sourceModel()->rowCount(), took);
    file->closeAndReset();
}

void convertLongPdf(const QTemporaryDir& folder) {
    const QString path = folder.filePath(QStringLiteral("long.pdf"));
    QPdfWriter writer(path);
    QPainter painter(&writer);
    const int step = writer.height() / (linesOnPage + 1);
    for (int page = 0; page < pageCount; ++page) {
        if (page > 0)
            writer.newPage();
        for (int line = 1; line <= linesOnPage; ++line)
            painter.drawText(0, line * step,
                             QString::number(page * linesOnPage + line) + QLatin1Char(' ') + sentence);
    }
    painter.end();
    const QString converter =
        QCoreApplication::applicationDirPath() + QStringLiteral("/3rd_party/pdftotext/pdftotext");
    const double alone = seconds([&] {
        QProcess::execute(converter, {QStringLiteral("-enc"), QStringLiteral("UTF-8"), path,
                                      folder.filePath(QStringLiteral("long.txt"))});
    });
    int length = 0;
    const double ours = seconds([&] { length = PDFTextExtractor(path).extract().size(); });
    std::printf("PDF of %d pages, %d characters: converter alone %.2f s, import %.2f s\n", pageCount, length,
                alone, ours);
}

void readLongRtf(const QTemporaryDir& folder) {
    const QByteArray body =
        ("{\\b I:} {\\i " + sentence + "}\\u8222?" + sentence + "\\'94\\par\r\n").toLatin1();
    const QByteArray rtf = "{\\rtf1\\ansi\\ansicpg1252 " + body.repeated(rtfParagraphs) + "}";
    const QString path = write(folder.filePath(QStringLiteral("long.rtf")), rtf).toLocalFile();
    int length = 0;
    const double took = seconds([&] { length = rtfToRichText(path).size(); });
    std::printf("RTF of %.1f MB, %d characters with marks: %.2f s\n", static_cast<double>(rtf.size()) / 1e6,
                length, took);
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    const QTemporaryDir folder;
    importManyFiles(folder);
    convertLongPdf(folder);
    readLongRtf(folder);
    return 0;
}
