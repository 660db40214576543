#include "Study.h"
#include "export/CsvExport.h"
#include "export/DocxSourceExporter.h"
#include "import/TransposedCSVImportModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceModel.h"
#include "undo/UndoManager.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSaveFile>
#include <QTemporaryDir>
#include <cstdio>
#include <ctime>

// What it costs to take a large project out as tables and as a Word document, against writing the same bytes,
// and to take a large table in. Names of parts as arguments ("csv", "docx", "import") measure these alone.

namespace {

constexpr int tableRows = 5000;
constexpr int questionColumns = 9;
constexpr int propertyColumns = 10;

/// Elapsed time, and the processor's time of this process.
struct Time {
    double elapsed = 0;
    double busy = 0;
};

template <typename Work> Time timeOf(Work work) {
    QElapsedTimer timer;
    timer.start();
    const std::clock_t begin = std::clock();
    work();
    return {static_cast<double>(timer.nsecsElapsed()) / 1e9,
            static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC};
}

/// MB of memory: held now, or the most since `forgetPeak`.
double memory(const char* field) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(field))
            return line.mid(line.indexOf(':') + 1).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

void forgetPeak() {
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

QList<QByteArray> bytesIn(const QString& folder) {
    QList<QByteArray> contents;
    for (const QFileInfo& info : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly))
            contents << file.readAll();
    }
    return contents;
}

/// Writes the bytes to files of their own, and no more than that.
Time bareWrite(const QString& folder, const QList<QByteArray>& contents) {
    return timeOf([&] {
        for (int i = 0; i < contents.size(); ++i) {
            QFile file(folder + QStringLiteral("/bare%1").arg(i));
            if (file.open(QIODevice::WriteOnly))
                file.write(contents.at(i));
        }
    });
}

/// Writes them as the export does: to the disk, and into place when all is there.
Time safeWrite(const QString& folder, const QList<QByteArray>& contents) {
    return timeOf([&] {
        for (int i = 0; i < contents.size(); ++i) {
            QSaveFile file(folder + QStringLiteral("/safe%1").arg(i));
            if (file.open(QIODevice::WriteOnly) && file.write(contents.at(i)) == contents.at(i).size())
                file.commit();
        }
    });
}

bool measureCsv(const Study& study) {
    const QTemporaryDir folder;
    const QTemporaryDir tables;
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    if (!openStudy(file, folder.filePath(QStringLiteral("study.krn")), study))
        return false;
    forgetPeak();
    const double before = memory("VmRSS");
    csv::Result result;
    const Time time = timeOf([&] { result = csv::exportProject(file, tables.path()); });
    const double peak = memory("VmHWM");
    const QList<QByteArray> contents = bytesIn(tables.path());
    const Time bare = bareWrite(tables.path(), contents);
    const Time safe = safeWrite(tables.path(), contents);
    std::printf(
        "CSV of %d sources of %d characters with %d highlights: %.2f s (%.2f s busy); writing the bytes to "
        "the disk %.2f s: %.1f x, leaving them to the system %.2f s: %.1f x; memory +%.0f MB at most; %s\n",
        study.sources, study.length, study.sources * highlightsPerSource, time.elapsed, time.busy,
        safe.elapsed, time.elapsed / safe.elapsed, bare.elapsed, time.elapsed / bare.elapsed, peak - before,
        qPrintable(result.sentence));
    file.close();
    return true;
}

bool measureDocx(const Study& study) {
    const QTemporaryDir folder;
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    if (!openStudy(file, folder.filePath(QStringLiteral("study.krn")), study))
        return false;
    DocxSourceExporter::Result result;
    const Time time = timeOf(
        [&] { result = DocxSourceExporter(&file).exportAll(folder.filePath(QStringLiteral("all.docx"))); });
    std::printf("DOCX of %d sources of %d characters with %d comments: %.2f s (%.2f s busy); %s\n",
                study.sources, study.length, study.sources * highlightsPerSource, time.elapsed, time.busy,
                qPrintable(result.sentence));
    file.close();
    return true;
}

QByteArray table() {
    QByteArray text = "Name";
    for (int i = 1; i <= questionColumns; ++i)
        text += ",\"What of " + QByteArray::number(i) + "?\"";
    for (int i = 1; i <= propertyColumns; ++i)
        text += ",Property " + QByteArray::number(i);
    text += '\n';
    for (int row = 1; row <= tableRows; ++row) {
        text += "Person " + QByteArray::number(row);
        for (int i = 1; i <= questionColumns; ++i)
            text += ",\"Well, that is a \"\"long\"\" story, of which I tell no more than this.\"";
        for (int i = 1; i <= propertyColumns; ++i)
            text += ',' + QByteArray::number(row % (5 * i));
        text += '\n';
    }
    return text;
}

bool measureImport() {
    const QTemporaryDir folder;
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    UndoManager undo(&file);
    QFile csv(folder.filePath(QStringLiteral("table.csv")));
    const QJsonObject project = projectAt(folder.filePath(QStringLiteral("survey.krn")));
    DataHelper& helper = *file.dataHelper();
    if ((!helper.isConnected() && !helper.connection()->connect(false)) ||
        !file.openProject(project, true, {}, false, true) || !csv.open(QIODevice::WriteOnly))
        return false;
    csv.write(table());
    csv.close();
    // Until all is stored, and has come back into the lists.
    const auto settle = [&](int sources) {
        file.getPreference(QStringLiteral("none"));
        while (file.sourceModel()->rowCount() != sources)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents();
    };
    TransposedCSVImportModel model;
    const Time read = timeOf([&] { model.openFile(QUrl::fromLocalFile(csv.fileName())); });
    model.setSectionType(0, CSVImportModel::Title);
    for (int i = 1; i <= questionColumns + propertyColumns; ++i)
        model.setSectionType(i, i <= questionColumns ? CSVImportModel::Question : CSVImportModel::Property);
    bool imported = false;
    double returned = 0;
    const Time import = timeOf([&] {
        returned = timeOf([&] { imported = undo.importSourcesFromCSV(&model); }).elapsed;
        settle(tableRows);
    });
    double undone = 0;
    const Time undoing = timeOf([&] {
        undone = timeOf([&] { undo.undo(); }).elapsed;
        settle(0);
    });
    std::printf(
        "CSV import of %d rows by %d columns: read in %.2f s, returned after %.2f s, stored and in the lists "
        "after %.2f s (%.2f s busy), %d step(s); undone: returned %.2f s, all %.2f s (%.2f s busy)\n",
        tableRows, 1 + questionColumns + propertyColumns, read.elapsed, returned, import.elapsed, import.busy,
        imported ? undo.count() : 0, undone, undoing.elapsed, undoing.busy);
    file.close();
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "minimal");
    const QGuiApplication application(argc, argv);
    const QStringList wanted = QCoreApplication::arguments().mid(1);
    const auto wants = [&](const char* part) {
        return wanted.isEmpty() || wanted.contains(QString::fromLatin1(part));
    };
    const bool measured = (!wants("csv") || measureCsv({1000, 100000})) &&
                          (!wants("docx") || measureDocx({200, 50000})) &&
                          (!wants("import") || measureImport());
    if (!measured)
        std::fputs("The service that KERNOVA_SERVICE_PROGRAM names can't be used.\n", stderr);
    return measured ? 0 : 1;
}
