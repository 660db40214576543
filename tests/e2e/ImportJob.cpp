#include "Job.h"

#include "SampleFiles.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "records/QuestionAnswer.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <sys/stat.h>

namespace {

const QString told = "Interview über den Garten\n\n<laughs> Да, конечно – „Grün“ & «frei».\t中文 😀\nEnd."_s;
// What a PDF keeps of it: blanks for tabs.
const QString toldOnPage =
    QString(told).replace("\n\n"_s, "\n"_s).replace(QLatin1Char('\t'), QLatin1Char(' '));

const QString noText =
    "The file has no text to import. A PDF file must contain text, not only pictures of it."_s;

QString summary(int imported) {
    return "%1 Source(s) have successfully been imported."_s.arg(imported);
}

/// Brings texts of all kinds into a project: by the file dialog, from the clipboard, by dropping, and cut
/// into questions and answers; and gives up on a file that never ends.
class ImportJob : public Job {
public:
    using Job::Job;

    static QStringList runs() { return {"whole"_s, "questions"_s}; }

    bool play(const QString& run) override {
        if (!signIn())
            return false;
        if (run == runs().first())
            return createProject(path("whole.krn"_s)) && chooseTheme(true) && importKinds() &&
                   importClipboard() && dropFiles() && importFolder() && cancelBatch();
        return createProject(path("questions.krn"_s), true) && chooseTheme(false) && previewQuestions() &&
               refuseBadFiles() && cancelReading();
    }

private:
    // Waits until the project has a source of this title and text, in one of its answers.
    bool holds(const QString& title, const QString& text) {
        const auto found = [&] {
            const QList<Source> sources = KRNFile::instance()->dataHelper()->findAll<Source>();
            const QList<QuestionAnswer> answers =
                KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>();
            for (const Source& source : sources) {
                for (const QuestionAnswer& answer : answers) {
                    if (source.title() == title && answer.sourceId() == source.id() &&
                        answer.plainAnswer() == text)
                        return true;
                }
            }
            return false;
        };
        return until(found, "the text of \"%1\" is not as it was"_s.arg(title));
    }

    bool importKinds() {
        QStringList paths;
        for (const char* suffix : {"txt", "rtf", "docx", "pdf"}) {
            const QString kind = QString::fromLatin1(suffix);
            const QString name = "From %1.%1"_s.arg(kind);
            if (!writeFile(path(name), samples::file(kind, kind == "pdf"_s ? toldOnPage : told)))
                return false;
            paths << path(name);
        }
        return importFiles(paths) && holds("From txt"_s, told) && holds("From rtf"_s, told) &&
               holds("From docx"_s, told + "\n\n"_s) && holds("From pdf"_s, toldOnPage) &&
               click("From docx"_s) && reads(told) && shoot("kinds"_s);
    }

    bool openDialog(const QString& entry) { return addMenu(entry) && shown("Source Title:"_s); }

    bool importClipboard() {
        QGuiApplication::clipboard()->setText("<P1> 1 < 2\r<b>Yes</b>"_s);
        return openDialog("Import Source: From Clipboard"_s) && shown("<P1> 1 < 2\nYes"_s) &&
               shoot("clipboard"_s) && click("Import"_s) && gone("Source Title:"_s) &&
               holds("Source 5"_s, "<P1> 1 < 2\nYes"_s);
    }

    // Drops the files, and answers the summary, which has to tell of so many sources.
    bool drop(const QStringList& names, int imported, const std::function<bool()>& meanwhile = {}) {
        QStringList paths;
        for (const QString& name : names)
            paths << path(name);
        bool waiting = static_cast<bool>(meanwhile);
        QString summed;
        const bool answered = m_driver.during([&] { m_driver.dropFiles(paths); },
                                              [&] {
                                                  waiting = waiting && !meanwhile();
                                                  summed = m_driver.messageBoxText();
                                                  return !waiting && m_driver.answerMessageBox("OK"_s);
                                              });
        return expect(answered, "the import of what was dropped doesn't tell what it did"_s) &&
               expect(summed == summary(imported), "the summary reads: "_s + summed);
    }

    bool dropFiles() {
        if (!writeFile(path("Dropped.RTF"_s), samples::rtfOfBody("{\\b Dropped} <x>")) ||
            !writeFile(path("empty.docx"_s), ""_s) || !writeFile(path("picture.png"_s), "x"_s))
            return false;
        const QStringList names{"Dropped.RTF"_s, "picture.png"_s, "empty.docx"_s};
        m_driver.dragFilesOver({path(names[0]), path(names[1]), path(names[2])});
        if (!shown("Drop to Import Sources"_s) || !shown("1. Dropped.RTF"_s) || !shown("2. empty.docx"_s) ||
            !shoot("drop"_s))
            return false;
        return drop(names, 1) && holds("Dropped"_s, "Dropped <x>"_s) && gone("Drop to Import Sources"_s);
    }

    // Of a large folder the last sources stand as tabs. PDF files and folders in it are passed over.
    bool importFolder() {
        constexpr int texts = 60;
        const QString folder = "folder/"_s;
        QDir(path(folder)).removeRecursively();
        QDir().mkpath(path(folder + "inner.txt"_s));
        for (int i = 0; i < texts; ++i) {
            const QString name = "Visit %1"_s.arg(i, 2, 10, QLatin1Char('0'));
            if (!writeFile(path(folder + name + ".txt"_s), name.toUtf8()))
                return false;
        }
        QString summed;
        if (!writeFile(path(folder + "Word.docx"_s), samples::file("docx"_s, toldOnPage)) ||
            !writeFile(path(folder + "Page.pdf"_s), samples::file("pdf"_s, toldOnPage)) ||
            !writeFile(path(folder + "A.RTF"_s), samples::rtfOfBody("First")) ||
            !importBy("Import Sources: Entire Folder"_s, {path(folder)}, &summed) ||
            !expect(summed == summary(texts + 2), "the summary reads: "_s + summed))
            return false;
        const auto tabs = [&] {
            QStringList titles;
            for (const QQuickItem* tab : m_driver.itemsOfType("TabShape"_s)) {
                if (!tab->property("text").toString().isEmpty())
                    titles << tab->property("text").toString();
            }
            titles.sort();
            return titles.join(QLatin1Char(' '));
        };
        return holds("A"_s, "First"_s) &&
               until([&] { return tabs() == "Visit 58 Visit 59 Word"_s; }, "the tabs are "_s + tabs()) &&
               shoot("folder"_s) && undo() &&
               until([&] { return KRNFile::instance()->sources().size() == 6; },
                     "the folder is not one step"_s) &&
               shoot("folder-undone"_s);
    }

    // The converter waits for ever for what comes out of a pipe.
    bool cancelBatch() {
        const QString pipe = "Endless.pdf"_s;
        QFile::remove(path(pipe));
        if (!writeFile(path("Before.txt"_s), "before"_s) || !writeFile(path("After.txt"_s), "after"_s) ||
            !expect(mkfifo(QFile::encodeName(path(pipe)).constData(), S_IRUSR | S_IWUSR) == 0,
                    "cannot make a pipe"_s))
            return false;
        const int before = undoIndex();
        return drop({"Before.txt"_s, pipe, "After.txt"_s}, 1,
                    [&] {
                        if (!m_driver.progressIsShown())
                            return false;
                        m_driver.snapshot("progress"_s);
                        return m_driver.cancelProgress();
                    }) &&
               holds("Before"_s, "before"_s) &&
               expect(undoIndex() == before + 1, "a cancelled batch is not one step"_s) && undo();
    }

    bool previewQuestions() {
        const QByteArray body =
            "Preface.\\par {\\b Question:} Where do you live?\\par Answer: By the \\ul river\\ulnone , "
            "\\u252\\'fcber <there>.\\par Question: And before?\\par Answer: {\\i Elsewhere} & far.";
        const QString file = path("Marked.rtf"_s);
        return writeFile(path("Marked.rtf"_s), samples::rtfOfBody(body)) &&
               openDialog("Import Source: Single File"_s) && shoot("empty-dialog"_s) &&
               chooseProject("Select File"_s, file) && shown("And before?"_s) &&
               shown("By the river, über <there>."_s) && shoot("preview"_s) && click("Import"_s) &&
               gone("Source Title:"_s) && holds("Source 1"_s, "By the river, über <there>."_s) &&
               expect(KRNFile::instance()->hasQuestion("Where do you live?"_s),
                      "a question has the marks of its marker"_s) &&
               shoot("answers"_s);
    }

    // The dialog says why there is nothing to import, and imports nothing.
    bool refuseBadFiles() {
        const QByteArray page = samples::pdf({told});
        const QVector<QPair<QString, QByteArray>> files{{"Photo.docx"_s, "\x89PNG\r\n"},
                                                        {"Third.pdf"_s, page.left(page.size() / 3)}};
        if (!openDialog("Import Source: Single File"_s))
            return false;
        const QQuickItem* const dialog = m_driver.itemsOfType("ImportSourceDialogImplementation"_s).value(0);
        for (const auto& [name, bytes] : files) {
            if (!writeFile(path(name), bytes) || !chooseProject("Select File"_s, path(name), name) ||
                !until([&] { return !dialog->property("reading").toBool(); }, "the reading of "_s + name) ||
                !shown(name.endsWith("pdf"_s)
                           ? noText
                           : "There is no text to import. Please check the file and the markers."_s) ||
                !expect(dialog->property("items").toList().isEmpty(), name + " has a preview"_s) ||
                !shoot(name))
                return false;
        }
        return click("Cancel"_s) && gone("Source Title:"_s) &&
               expect(KRNFile::instance()->sources().size() == 1, "there is half a source"_s);
    }

    bool cancelReading() {
        const QString pipe = path("Endless.pdf"_s);
        QFile::remove(pipe);
        bool chosen = false;
        bool looked = false;
        // The file is read in an event loop of its own, inside of whatever waits here: each step comes from
        // there.
        const auto leave = [&] {
            if (!chosen) {
                chosen = m_driver.chooseFiles({pipe});
                return false;
            }
            if (!looked && !m_driver.itemsOfType("BusyIndicator"_s).isEmpty())
                looked = !m_driver.snapshot("reading"_s).isEmpty();
            return looked && m_driver.clickText("Cancel"_s);
        };
        return writeFile(path("Scanned.pdf"_s), samples::pdf({QString()})) &&
               expect(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR) == 0,
                      "cannot make a pipe"_s) &&
               openDialog("Import Source: Single File"_s) &&
               chooseProject("Select File"_s, path("Scanned.pdf"_s), noText) && shoot("scanned"_s) &&
               expect(m_driver.during([&] { m_driver.clickText("Select File"_s); }, leave),
                      "the reading can't be cancelled"_s) &&
               gone("Source Title:"_s) &&
               expect(KRNFile::instance()->sources().size() == 1, "there is half a source"_s);
    }
};

const Played<ImportJob> played{"import"_s, {"whole"_s, "questions"_s}};

}  // namespace
