#include "ImportJob.h"

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

constexpr int pipeLimitMs = 6000;

const QString told =
    QString::fromUtf8("Interview über den Garten\n\n<laughs> Да, конечно – „Grün“ & «frei».\t中文 😀\nEnd.");
// What a PDF keeps of it: blanks for tabs.
const QString toldOnPage = QString(told)
                               .replace(QLatin1String("\n\n"), QLatin1String("\n"))
                               .replace(QLatin1Char('\t'), QLatin1Char(' '));

QString summary(int imported) {
    return QStringLiteral("%1 Source(s) have successfully been imported.").arg(imported);
}

}  // namespace

QStringList ImportJob::runs() {
    return {QStringLiteral("whole"), QStringLiteral("questions")};
}

bool ImportJob::play(const QString& run) {
    if (!signIn())
        return false;
    if (run == runs().first())
        return createProject(path(QStringLiteral("whole.krn"))) && chooseTheme(true) && importKinds() &&
               importClipboard() && dropFiles() && importFolder() && cancelBatch();
    return createProject(path(QStringLiteral("questions.krn")), true) && chooseTheme(false) &&
           previewQuestions() && refuseBadFiles() && cancelReading();
}

bool ImportJob::writeBytes(const QString& name, const QByteArray& bytes) {
    QFile file(path(name));
    return expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                  QStringLiteral("cannot write ") + name);
}

bool ImportJob::holds(const QString& title, const QString& text) {
    const auto found = [&] {
        const QList<Source> sources = KRNFile::instance()->dataHelper()->findAll<Source>();
        const QList<QuestionAnswer> answers = KRNFile::instance()->dataHelper()->findAll<QuestionAnswer>();
        for (const Source& source : sources) {
            for (const QuestionAnswer& answer : answers) {
                if (source.title() == title && answer.sourceId() == source.id() &&
                    answer.plainAnswer() == text)
                    return true;
            }
        }
        return false;
    };
    return until(found, QStringLiteral("the text of \"%1\" is not as it was").arg(title));
}

bool ImportJob::importKinds() {
    QStringList paths;
    for (const char* suffix : {"txt", "rtf", "docx", "pdf"}) {
        const QString kind = QString::fromLatin1(suffix);
        const QString name = QStringLiteral("From %1.%1").arg(kind);
        if (!writeBytes(name, samples::file(kind, kind == QLatin1String("pdf") ? toldOnPage : told)))
            return false;
        paths << path(name);
    }
    return importFiles(paths) && holds(QStringLiteral("From txt"), told) &&
           holds(QStringLiteral("From rtf"), told) &&
           holds(QStringLiteral("From docx"), told + QStringLiteral("\n\n")) &&
           holds(QStringLiteral("From pdf"), toldOnPage) && click(QStringLiteral("From docx")) &&
           expect(m_source.read(told), QStringLiteral("the document is not shown")) &&
           shoot(QStringLiteral("kinds"));
}

bool ImportJob::openDialog(const QString& entry) {
    return expect(m_driver.click(m_driver.itemNamed(QStringLiteral("addSource"))),
                  QStringLiteral("there is no button to add a source")) &&
           click(entry) && shown(QStringLiteral("Source Title:"));
}

bool ImportJob::importClipboard() {
    QGuiApplication::clipboard()->setText(QStringLiteral("<P1> 1 < 2\r<b>Yes</b>"));
    return openDialog(QStringLiteral("Import Source: From Clipboard")) &&
           shown(QStringLiteral("<P1> 1 < 2\nYes")) && shoot(QStringLiteral("clipboard")) &&
           click(QStringLiteral("Import")) && gone(QStringLiteral("Source Title:")) &&
           holds(QStringLiteral("Source 5"), QStringLiteral("<P1> 1 < 2\nYes"));
}

bool ImportJob::drop(const QStringList& names, int imported, const std::function<bool()>& meanwhile) {
    QStringList paths;
    for (const QString& name : names)
        paths << path(name);
    bool waiting = static_cast<bool>(meanwhile);
    QString summed;
    const bool answered =
        m_driver.during([&] { m_driver.dropFiles(paths); },
                        [&] {
                            waiting = waiting && !meanwhile();
                            summed = m_driver.messageBoxText();
                            return !waiting && m_driver.answerMessageBox(QStringLiteral("OK"));
                        });
    return expect(answered, QStringLiteral("the import of what was dropped doesn't tell what it did")) &&
           expect(summed == summary(imported), QStringLiteral("the summary reads: ") + summed);
}

bool ImportJob::dropFiles() {
    if (!writeBytes(QStringLiteral("Dropped.RTF"), samples::rtfOfBody("{\\b Dropped} <x>")) ||
        !writeBytes(QStringLiteral("empty.docx"), "") || !writeBytes(QStringLiteral("picture.png"), "x"))
        return false;
    const QStringList names{QStringLiteral("Dropped.RTF"), QStringLiteral("picture.png"),
                            QStringLiteral("empty.docx")};
    m_driver.dragFilesOver({path(names[0]), path(names[1]), path(names[2])});
    if (!shown(QStringLiteral("Drop to Import Sources")) || !shown(QStringLiteral("1. Dropped.RTF")) ||
        !shown(QStringLiteral("2. empty.docx")) || !shoot(QStringLiteral("drop")))
        return false;
    return drop(names, 1) && holds(QStringLiteral("Dropped"), QStringLiteral("Dropped <x>")) &&
           gone(QStringLiteral("Drop to Import Sources"));
}

// Of a large folder the last sources stand as tabs. PDF files and folders in it are passed over.
bool ImportJob::importFolder() {
    constexpr int texts = 60;
    const QString folder = QStringLiteral("folder/");
    QDir(path(folder)).removeRecursively();
    QDir().mkpath(path(folder + QStringLiteral("inner.txt")));
    for (int i = 0; i < texts; ++i) {
        const QString name = QStringLiteral("Visit %1").arg(i, 2, 10, QLatin1Char('0'));
        if (!writeBytes(folder + name + QStringLiteral(".txt"), name.toUtf8()))
            return false;
    }
    QString told;
    if (!writeBytes(folder + QStringLiteral("Word.docx"),
                    samples::file(QStringLiteral("docx"), toldOnPage)) ||
        !writeBytes(folder + QStringLiteral("Page.pdf"), samples::file(QStringLiteral("pdf"), toldOnPage)) ||
        !writeBytes(folder + QStringLiteral("A.RTF"), samples::rtfOfBody("First")) ||
        !importBy(QStringLiteral("Import Sources: Entire Folder"), {path(folder)}, &told) ||
        !expect(told == summary(texts + 2), QStringLiteral("the summary reads: ") + told))
        return false;
    const auto tabs = [&] {
        QStringList titles;
        for (const QQuickItem* tab : m_driver.itemsOfType(QStringLiteral("TabShape"))) {
            if (!tab->property("text").toString().isEmpty())
                titles << tab->property("text").toString();
        }
        titles.sort();
        return titles.join(QLatin1Char(' '));
    };
    return holds(QStringLiteral("A"), QStringLiteral("First")) &&
           until([&] { return tabs() == QStringLiteral("Visit 58 Visit 59 Word"); },
                 QStringLiteral("the tabs are ") + tabs()) &&
           shoot(QStringLiteral("folder")) && undo() &&
           until([&] { return KRNFile::instance()->sources().size() == 6; },
                 QStringLiteral("the folder is not one step")) &&
           shoot(QStringLiteral("folder-undone"));
}

// The converter waits for ever for what comes out of a pipe.
bool ImportJob::cancelBatch() {
    const QString pipe = QStringLiteral("Endless.pdf");
    QFile::remove(path(pipe));
    if (!writeBytes(QStringLiteral("Before.txt"), "before") ||
        !writeBytes(QStringLiteral("After.txt"), "after") ||
        !expect(mkfifo(QFile::encodeName(path(pipe)).constData(), S_IRUSR | S_IWUSR) == 0,
                QStringLiteral("cannot make a pipe")))
        return false;
    const int before = undoIndex();
    return drop({QStringLiteral("Before.txt"), pipe, QStringLiteral("After.txt")}, 1,
                [&] {
                    if (!m_driver.progressIsShown())
                        return false;
                    shoot(QStringLiteral("progress"));
                    return m_driver.cancelProgress();
                }) &&
           holds(QStringLiteral("Before"), QStringLiteral("before")) &&
           expect(undoIndex() == before + 1, QStringLiteral("a cancelled batch is not one step")) && undo();
}

bool ImportJob::previewQuestions() {
    const QByteArray body =
        "Preface.\\par {\\b Question:} Where do you live?\\par Answer: By the \\ul river\\ulnone , "
        "\\u252\\'fcber <there>.\\par Question: And before?\\par Answer: {\\i Elsewhere} & far.";
    const QString file = path(QStringLiteral("Marked.rtf"));
    return writeBytes(QStringLiteral("Marked.rtf"), samples::rtfOfBody(body)) &&
           openDialog(QStringLiteral("Import Source: Single File")) &&
           shoot(QStringLiteral("empty-dialog")) && chooseProject(QStringLiteral("Select File"), file) &&
           shown(QStringLiteral("And before?")) && shown(QString::fromUtf8("By the river, über <there>.")) &&
           shoot(QStringLiteral("preview")) && click(QStringLiteral("Import")) &&
           gone(QStringLiteral("Source Title:")) &&
           holds(QStringLiteral("Source 1"), QString::fromUtf8("By the river, über <there>.")) &&
           expect(KRNFile::instance()->hasQuestion(QStringLiteral("Where do you live?")),
                  QStringLiteral("a question has the marks of its marker")) &&
           shoot(QStringLiteral("answers"));
}

// The dialog says why there is nothing to import, and imports nothing.
bool ImportJob::refuseBadFiles() {
    const QByteArray word = samples::file(QStringLiteral("docx"), told);
    const QByteArray page = samples::pdf({told});
    const QVector<QPair<QString, QByteArray>> files{
        {QStringLiteral("Nothing.txt"), ""},
        {QStringLiteral("Zero.docx"), ""},
        {QStringLiteral("Half.docx"), word.left(word.size() / 2)},
        {QStringLiteral("Photo.docx"), "\x89PNG\r\n"},
        {QStringLiteral("Rich.rtf"), word},
        {QStringLiteral("Packed.txt"), word},
        {QStringLiteral("Blank.pdf"), ""},
        {QStringLiteral("Third.pdf"), page.left(page.size() / 3)},
        {QStringLiteral("Secret.pdf"), samples::pdf({told}, "/Encrypt << /Filter /Unknown /V 9 >>")}};
    if (!openDialog(QStringLiteral("Import Source: Single File")))
        return false;
    QQuickItem* const dialog =
        m_driver.itemsOfType(QStringLiteral("ImportSourceDialogImplementation")).value(0);
    // The system's dialog now and then gives no file for the name of a new one: ask it again.
    const auto choose = [&](const QString& name) {
        for (int attempt = 0; attempt < 4; ++attempt) {
            chooseProject(QStringLiteral("Select File"), path(name));
            if (AppDriver::waitFor(
                    [&] { return m_driver.isShown(name) && !dialog->property("reading").toBool(); },
                    pipeLimitMs))
                return true;
        }
        return fail(name + QStringLiteral(" can't be chosen"));
    };
    for (const auto& [name, bytes] : files) {
        if (!writeBytes(name, bytes) || !choose(name) ||
            !shown(
                name.endsWith(QLatin1String("pdf"))
                    ? QStringLiteral("The file has no text to import. A PDF file must contain text, not only "
                                     "pictures of it.")
                    : QStringLiteral("There is no text to import. Please check the file and the markers.")) ||
            !expect(dialog->property("items").toList().isEmpty(), name + QStringLiteral(" has a preview")) ||
            !shoot(name))
            return false;
    }
    return click(QStringLiteral("Cancel")) && gone(QStringLiteral("Source Title:")) &&
           expect(KRNFile::instance()->sources().size() == 1, QStringLiteral("there is half a source"));
}

bool ImportJob::cancelReading() {
    const QString scanned = path(QStringLiteral("Scanned.pdf"));
    const QString pipe = path(QStringLiteral("Endless.pdf"));
    QFile::remove(pipe);
    if (!writeBytes(QStringLiteral("Scanned.pdf"), samples::pdf({QString()})) ||
        !expect(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR) == 0,
                QStringLiteral("cannot make a pipe")) ||
        !openDialog(QStringLiteral("Import Source: Single File")) ||
        !chooseProject(QStringLiteral("Select File"), scanned) ||
        !shown(QStringLiteral(
            "The file has no text to import. A PDF file must contain text, not only pictures of "
            "it.")) ||
        !shoot(QStringLiteral("scanned")))
        return false;
    bool chosen = false;
    bool looked = false;
    // Each step has a turn of its own, which comes from the event loop in which the file is read.
    const auto leave = [&] {
        if (!chosen) {
            chosen = m_driver.chooseFiles({pipe});
            return false;
        }
        if (!looked && !m_driver.itemsOfType(QStringLiteral("BusyIndicator")).isEmpty())
            looked = shoot(QStringLiteral("reading"));
        return looked && m_driver.clickText(QStringLiteral("Cancel"));
    };
    // The system's dialog lists no pipes, and now and then gives no file for the name of one: ask it again.
    bool left = false;
    for (int attempt = 0; attempt < 4 && !left; ++attempt) {
        chosen = looked = false;
        left =
            m_driver.during([&] { m_driver.clickText(QStringLiteral("Select File")); }, leave, pipeLimitMs);
    }
    return expect(left, QStringLiteral("the reading can't be cancelled")) &&
           gone(QStringLiteral("Source Title:")) &&
           expect(KRNFile::instance()->sources().size() == 1, QStringLiteral("there is half a source"));
}
