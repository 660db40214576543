#include "ExportJob.h"

#include "import/DOCXTextExtractor.h"
#include "link/IdManager.h"
#include "project/KRNFile.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTimer>

namespace {

constexpr int tellingMs = 4000;
constexpr int bulkSources = 100;
constexpr int bulkLength = 1000000;
constexpr int attemptMs = 30;

const QString text = QString::fromUtf8("They said: \"Wait, and see\".\nAnd so we did – for years.\n");
const QString csvEntry = QStringLiteral("Export Spreadsheet (CSV)");
const QString wordEntry = QStringLiteral("Export Sources as Word Document");
const QString separateEntry = QStringLiteral("Individual Sources as Word Document");

/// Takes the addresses that the program wants to be shown.
class ShownFolders : public QObject {
    Q_OBJECT

public:
    ShownFolders() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "show"); }
    ~ShownFolders() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QStringList folders;

public slots:
    void show(const QUrl& url) { folders << url.toLocalFile(); }
};

}  // namespace

QStringList ExportJob::runs() {
    return {QStringLiteral("dark"), QStringLiteral("light")};
}

bool ExportJob::play(const QString& run) {
    const bool dark = run == QLatin1String("dark");
    if (!signIn() || !createProject(path(run + QStringLiteral(".krn"))) || !chooseTheme(dark) ||
        !importTable())
        return false;
    return !dark || (codePassage(text, QStringLiteral("Wait, and see")) && exportTables() &&
                     exportDocuments() && cancelExport());
}

QString ExportJob::folder(const QString& name) {
    QDir(path(name)).removeRecursively();
    QDir().mkpath(path(name));
    return path(name);
}

// The system's dialog now and then gives no file: ask it again.
bool ExportJob::chooseTable(const QString& path, const QString& told) {
    bool read = false;
    for (int attempt = 0; attempt < 4 && !read; ++attempt) {
        read = chooseProject(QStringLiteral("Select File"), path) &&
               AppDriver::waitFor([&] { return m_driver.isShown(told); }, tellingMs);
    }
    return expect(read, QStringLiteral("nothing reads ") + told);
}

bool ExportJob::importTable() {
    const QString table = path(QStringLiteral("survey.csv"));
    const QString noRows = path(QStringLiteral("empty.csv"));
    const QString rows =
        QStringLiteral("Name,A question that somebody has asked at such a length that no table has the room "
                       "to show all of it "
                       "in a single line?,Age,Remarks\nDora,\"Well, <i>said</i>\nby < 3\",30,\n,No,30,x\n");
    if (!writeFile(table, rows) || !writeFile(noRows, QStringLiteral("Name,Age\n")) ||
        !expect(m_driver.click(m_driver.itemNamed(QStringLiteral("addSource"))),
                QStringLiteral("there is no button to add a source")) ||
        !click(QStringLiteral("Import Sources From CSV")) || !shown(QStringLiteral("No file selected.")) ||
        !shoot(QStringLiteral("table-empty")) ||
        !chooseTable(noRows, QStringLiteral("The selected file did not contain any relevant data.")) ||
        !chooseTable(table, QStringLiteral("Sources to import: 2")))
        return false;
    QString told;
    const bool answered = m_driver.during([&] { click(QStringLiteral("Import")); },
                                          [&] {
                                              told = m_driver.messageBoxText();
                                              return m_driver.answerMessageBox(QStringLiteral("OK"));
                                          });
    const QString refusal = QStringLiteral("Cannot start import. Please fix the following problem:\n\n"
                                           "Please select at least one question.");
    if (!expect(answered && told == refusal, QStringLiteral("a table without a question is taken: ") + told))
        return false;
    const QStringList types{QStringLiteral("Title"), QStringLiteral("Question"), QStringLiteral("Property")};
    for (int i = 0; i < types.size(); ++i) {
        if (!choose(m_driver.itemsOfType(QStringLiteral("ArrowComboBox")).value(i), types.at(i)))
            return false;
    }
    const int before = undoIndex();
    const auto holds = [](int sources) {
        return [sources] { return KRNFile::instance()->sources().size() == sources; };
    };
    return shoot(QStringLiteral("table")) && click(QStringLiteral("Import")) &&
           gone(QStringLiteral("Sources to import: 2")) &&
           until(holds(2), QStringLiteral("the rows are not imported")) && click(QStringLiteral("Dora")) &&
           expect(m_source.read(QStringLiteral("Well, said\nby < 3")),
                  QStringLiteral("the answer is not shown")) &&
           shoot(QStringLiteral("table-imported")) &&
           expect(undoIndex() == before + 1, QStringLiteral("a table is not one step")) && undo() &&
           until(holds(0), QStringLiteral("a table can't be undone")) && redo() &&
           until(holds(2), QStringLiteral("a table can't be redone"));
}

bool ExportJob::exportTo(const QString& entry, const QString& path) {
    return click(QStringLiteral("Export")) && shown(entry) && shoot(QStringLiteral("export-menu")) &&
           chooseProject(entry, path);
}

bool ExportJob::fileHolds(const QString& path, const QByteArray& bytes) {
    const auto holds = [&] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) && file.readAll().contains(bytes);
    };
    return until(holds, path + QStringLiteral(" does not hold ") + QString::fromUtf8(bytes));
}

bool ExportJob::exportTables() {
    const ShownFolders shownFolders;
    const QString tables = folder(QStringLiteral("tables"));
    if (!exportTo(csvEntry, tables) ||
        !fileHolds(tables + QStringLiteral("/Quotes.csv"),
                   "\"Belonging\",3,\"Yard\",1,\"Wait, and see\",\"\",\n") ||
        !fileHolds(tables + QStringLiteral("/Sources.csv"), "\"They said: \"\"Wait, and see\"\".\n") ||
        !until([&] { return shownFolders.folders == QStringList{tables}; },
               QStringLiteral("the folder of the tables is not shown")))
        return false;
    QFile::remove(tables + QStringLiteral("/Memos.csv"));
    QDir().mkpath(tables + QStringLiteral("/Memos.csv"));
    QString told;
    const bool answered = m_driver.during([&] { exportTo(csvEntry, tables); },
                                          [&] {
                                              told = m_driver.messageBoxText();
                                              return m_driver.answerMessageBox(QStringLiteral("OK"));
                                          });
    return expect(answered && told.startsWith(QStringLiteral("An error occurred during CSV export!")) &&
                      told.contains(QStringLiteral("Memos.csv")),
                  QStringLiteral("a failed export is not told: ") + told);
}

bool ExportJob::exportDocuments() {
    const QString all = folder(QStringLiteral("documents")) + QStringLiteral("/all");
    const QString single = path(QStringLiteral("documents/each/3_Yard.docx"));
    QDir().mkpath(path(QStringLiteral("documents/each")));
    const auto written = [](const QString& file) {
        return QFile::exists(file) &&
               DOCXTextExtractor(file).extract().contains(QStringLiteral("And so we did"));
    };
    return exportTo(wordEntry, all) &&
           until([&] { return written(all + QStringLiteral(".docx")); },
                 QStringLiteral("there is no document of all sources")) &&
           exportTo(separateEntry, path(QStringLiteral("documents/each"))) &&
           until([&] { return written(single); }, QStringLiteral("there is no document of the source"));
}

// Many long texts that hardly pack, so that there is time to think better of it.
bool ExportJob::cancelExport() {
    KRNFile* const project = KRNFile::instance();
    IdManager* const ids = IdManager::instance();
    QString longText(bulkLength, ' ');
    for (int i = 0; i < bulkLength; ++i) {
        if (i % 7 != 0)
            longText[i] = QChar('a' + QRandomGenerator::global()->bounded(26));
    }
    for (int i = 0; i < bulkSources; ++i) {
        const int sourceId = ids->nextSourceId();
        project->saveAnswer(QuestionAnswer(ids->nextAnswerId(), 1, sourceId, QString(), longText, {}));
        project->saveSource(Source(sourceId, QStringLiteral("Talk %1").arg(i), QString(), QString(), {}));
    }
    if (!until([&] { return project->sources().size() > bulkSources && project->allTextsHere(); },
               QStringLiteral("the long texts do not come")))
        return false;
    const QString tables = folder(QStringLiteral("cancelled"));
    // The export runs inside of the key that accepts the file, so the progress is watched for beside it.
    bool cancelled = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        if (cancelled || !m_driver.progressIsShown())
            return;
        shoot(QStringLiteral("progress"));
        cancelled = m_driver.cancelProgress();
    });
    watch.start(attemptMs);
    m_driver.during(
        [&] {
            click(QStringLiteral("Export"));
            click(wordEntry);
        },
        [&] { return m_driver.chooseFiles({tables + QStringLiteral("/never.docx")}); });
    return expect(cancelled, QStringLiteral("an export can't be cancelled")) &&
           until([&] { return !m_driver.progressIsShown(); }, QStringLiteral("the progress stays")) &&
           expect(QDir(tables).isEmpty(QDir::Files), QStringLiteral("there is half a document")) &&
           expect(m_driver.messageBoxText().isEmpty(),
                  QStringLiteral("a cancelled export is told as a failure"));
}

#include "ExportJob.moc"
