#include "Job.h"

#include "import/DOCXTextExtractor.h"
#include "link/IdManager.h"
#include "project/KRNFile.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTimer>

namespace {

constexpr int bulkSources = 100;
constexpr int bulkLength = 1000000;
constexpr int attemptMs = 30;
constexpr int paintedAttempts = 5;

const QString text = "They said: \"Wait, and see\".\nAnd so we did – for years.\n"_s;
const QString csvEntry = "Export Spreadsheet (CSV)"_s;
const QString wordEntry = "Export Sources as Word Document"_s;
const QString separateEntry = "Individual Sources as Word Document"_s;

/// Takes the addresses that the program wants to be shown.
class ShownFolders : public QObject {
    Q_OBJECT

public:
    ShownFolders() { QDesktopServices::setUrlHandler("file"_s, this, "show"); }
    ~ShownFolders() override { QDesktopServices::unsetUrlHandler("file"_s); }

    QStringList folders;

public slots:
    void show(const QUrl& url) { folders << url.toLocalFile(); }
};

/// Takes what was made out of the program: tables and Word documents, each from the menu to the file; gives
/// an export up in the middle; and brings a table in.
class ExportJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        const bool dark = run == "dark"_s;
        if (!signIn() || !createProject(path(run + ".krn"_s)) || !chooseTheme(dark) || !importTable())
            return false;
        return !dark || (codePassage(text, "Wait, and see"_s) && exportTables() && exportDocuments() &&
                         cancelExport());
    }

private:
    QString folder(const QString& name) {
        QDir(path(name)).removeRecursively();
        QDir().mkpath(path(name));
        return path(name);
    }

    bool importTable() {
        const QString table = path("survey.csv"_s);
        const QString noRows = path("empty.csv"_s);
        const QString rows =
            "Name,A question that somebody has asked at such a length that no table has the room "
            "to show all of it "
            "in a single line?,Age,Remarks\nDora,\"Well, <i>said</i>\nby < 3\",30,\n,No,30,x\n"_s;
        if (!writeFile(table, rows) || !writeFile(noRows, "Name,Age\n"_s) ||
            !addMenu("Import Sources From CSV"_s) || !shown("No file selected."_s) ||
            !shoot("table-empty"_s) ||
            !chooseProject("Select File"_s, noRows,
                           "The selected file did not contain any relevant data."_s) ||
            !chooseProject("Select File"_s, table, "Sources to import: 2"_s))
            return false;
        if (!answering([&] { click("Import"_s); }, "OK"_s,
                       "Cannot start import. Please fix the following problem:\n\n"
                       "Please select at least one question."_s))
            return false;
        const QStringList types{"Title"_s, "Question"_s, "Property"_s};
        for (int i = 0; i < types.size(); ++i) {
            if (!choose(m_driver.itemsOfType("ArrowComboBox"_s).value(i), types.at(i)))
                return false;
        }
        const int before = undoIndex();
        const auto holds = [](int sources) {
            return [sources] { return KRNFile::instance()->sources().size() == sources; };
        };
        return shoot("table"_s) && click("Import"_s) && gone("Sources to import: 2"_s) &&
               until(holds(2), "the rows are not imported"_s) && click("Dora"_s) &&
               reads("Well, said\nby < 3"_s) && shoot("table-imported"_s) &&
               expect(undoIndex() == before + 1, "a table is not one step"_s) && undo() &&
               until(holds(0), "a table can't be undone"_s) && redo() &&
               until(holds(2), "a table can't be redone"_s);
    }

    // Triggers an entry of the export menu, and gives its dialog a file or folder.
    bool exportTo(const QString& entry, const QString& path) {
        return click("Export"_s) && shown(entry) && shoot("export-menu"_s) && chooseProject(entry, path);
    }

    bool fileHolds(const QString& path, const QByteArray& bytes) {
        const auto holds = [&] {
            QFile file(path);
            return file.open(QIODevice::ReadOnly) && file.readAll().contains(bytes);
        };
        return until(holds, path + " does not hold "_s + QString::fromUtf8(bytes));
    }

    bool exportTables() {
        const ShownFolders shownFolders;
        const QString tables = folder("tables"_s);
        if (!exportTo(csvEntry, tables) ||
            !fileHolds(tables + "/Quotes.csv"_s, "\"Belonging\",3,\"Yard\",1,\"Wait, and see\",\"\",\n") ||
            !fileHolds(tables + "/Sources.csv"_s, "\"They said: \"\"Wait, and see\"\".\n") ||
            !until([&] { return shownFolders.folders == QStringList{tables}; },
                   "the folder of the tables is not shown"_s))
            return false;
        QFile::remove(tables + "/Memos.csv"_s);
        QDir().mkpath(tables + "/Memos.csv"_s);
        QString told;
        const bool answered = m_driver.during([&] { exportTo(csvEntry, tables); },
                                              [&] {
                                                  told = m_driver.messageBoxText();
                                                  return m_driver.answerMessageBox("OK"_s);
                                              });
        return expect(answered && told.startsWith("An error occurred during CSV export!"_s) &&
                          told.contains("Memos.csv"_s),
                      "a failed export is not told: "_s + told);
    }

    bool exportDocuments() {
        const QString all = folder("documents"_s) + "/all"_s;
        const QString single = path("documents/each/3_Yard.docx"_s);
        QDir().mkpath(path("documents/each"_s));
        const auto written = [](const QString& file) {
            return QFile::exists(file) && DOCXTextExtractor(file).extract().contains("And so we did"_s);
        };
        return exportTo(wordEntry, all) &&
               until([&] { return written(all + ".docx"_s); }, "there is no document of all sources"_s) &&
               exportTo(separateEntry, path("documents/each"_s)) &&
               until([&] { return written(single); }, "there is no document of the source"_s);
    }

    // Many long texts that hardly pack, so that there is time to think better of it.
    bool cancelExport() {
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
            project->saveSource(Source(sourceId, "Talk %1"_s.arg(i), QString(), QString(), {}));
        }
        if (!until([&] { return project->sources().size() > bulkSources && project->allTextsHere(); },
                   "the long texts do not come"_s))
            return false;
        const QString tables = folder("cancelled"_s);
        // The export runs inside of the key that accepts the file, so the progress is watched for beside it.
        bool cancelled = false;
        int seen = 0;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            // It is there for a person when it has been painted.
            if (cancelled || !m_driver.progressIsShown() || ++seen < paintedAttempts)
                return;
            m_driver.snapshot("progress"_s);
            cancelled = m_driver.cancelProgress();
        });
        watch.start(attemptMs);
        m_driver.during(
            [&] {
                click("Export"_s);
                click(wordEntry);
            },
            [&] { return m_driver.chooseFiles({tables + "/never.docx"_s}); });
        return expect(cancelled, "an export can't be cancelled"_s) &&
               until([&] { return !m_driver.progressIsShown(); }, "the progress stays"_s) &&
               expect(QDir(tables).isEmpty(QDir::Files), "there is half a document"_s) &&
               expect(m_driver.messageBoxText().isEmpty(), "a cancelled export is told as a failure"_s);
    }
};

const Played<ExportJob> played{"export"_s, {"dark"_s, "light"_s}};

}  // namespace

#include "ExportJob.moc"
