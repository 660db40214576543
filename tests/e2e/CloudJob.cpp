#include "CloudJob.h"

#include "LayoutCheck.h"
#include "SampleFiles.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"

#include <QFile>
#include <QQuickWindow>
#include <QSettings>

namespace {

const QString workRun = QStringLiteral("work");
const QString projectsRun = QStringLiteral("projects");
const QString looks = QStringLiteral("looks-");
const QString unwanted = QStringLiteral("Left over");
const QString study = QStringLiteral("Study");
const QString elsewhere = QStringLiteral("Elsewhere");
const QString secret = QStringLiteral("Secret");
const QString word = QStringLiteral("Öffne dich");
const QString welcome = QStringLiteral("Welcome to Kernova Cloud");
const QString lost = QStringLiteral("Connection lost, reconnecting...");

HttpAnswer refuse(const HttpAsked&) {
    return {503, {}};
}

}  // namespace

QStringList CloudJob::runs() {
    return {workRun, looks + QStringLiteral("dark"), projectsRun, looks + QStringLiteral("light")};
}

bool CloudJob::play(const QString& run) {
    nameService();
    if (!expect(m_cloud.start(), QStringLiteral("the cloud's service does not start")))
        return false;
    m_cloud.addProject(QStringLiteral("What others do"), true);
    if (run == workRun)
        return nameServer() && signInToCloud() && createInCloud(study, {}) && work() && loseLink() &&
               copyInCloud() && download() && readOnly();
    if (run.startsWith(looks)) {
        for (int number = 1; number <= 12; ++number)
            m_cloud.addProject(QStringLiteral("Interviews of the winter, round %1").arg(number));
        return nameServer() && signInToCloud() && lookAtDialogs();
    }
    m_cloud.addProject(unwanted);
    const bool done = nameServer() && signInToCloud() && upload() && remove() && openUploaded() &&
                      convert() && mergeInCloud() && createInCloud(secret, word) && openProtected() &&
                      signOut();
    QSettings().setValue(QStringLiteral("darkTheme"), false);
    return done;
}

bool CloudJob::nameServer() {
    QQuickItem* entry = m_driver.itemWithText(QStringLiteral("Server..."));
    if (!entry || !shoot(QStringLiteral("sign-in")) || !m_driver.click(entry))
        return fail(QStringLiteral("there is no way to name a server"));
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("server"));
    if (!expect(m_driver.fill(field, QStringLiteral("http://example.org")),
                QStringLiteral("no server field")) ||
        !click(QStringLiteral("Save")) ||
        !shown(QStringLiteral("A server that is not on this computer is reached by https only.")) ||
        !shoot(QStringLiteral("server-refused")))
        return false;
    m_driver.fill(field, m_cloud.address());
    return click(QStringLiteral("Test")) && shown(QStringLiteral("The server answers.")) &&
           shoot(QStringLiteral("server")) && click(QStringLiteral("Save")) &&
           shown(QStringLiteral("Kernova Cloud")) &&
           expect(QSettings().value(QStringLiteral("cloudHost")) == m_cloud.address(),
                  QStringLiteral("the server is not stored"));
}

// By keys alone, but for the way to the first field.
bool CloudJob::signInToCloud() {
    QQuickItem* email = m_driver.itemNamed(QStringLiteral("email"));
    QQuickItem* password = m_driver.itemNamed(QStringLiteral("password"));
    if (!expect(m_driver.fill(email, ScriptedCloud::email()), QStringLiteral("there is no email field")))
        return false;
    m_driver.press(Qt::Key_Tab);
    if (!expect(password->hasActiveFocus(), QStringLiteral("Tab does not lead on to the password")))
        return false;
    m_driver.type(QStringLiteral("wrong"));
    m_driver.press(Qt::Key_Return);
    if (!shown(QStringLiteral("Email or password is wrong.")) || !shoot(QStringLiteral("wrong-password")))
        return false;
    m_driver.fill(password, ScriptedCloud::password());
    m_driver.press(Qt::Key_Return);
    return showProjects() && gone(QStringLiteral("Sign In")) && shown(QStringLiteral("What others do")) &&
           shoot(QStringLiteral("projects"));
}

bool CloudJob::showProjects() {
    return shown(welcome) && until([&] { return m_driver.itemNamed(QStringLiteral("ownProjects"), 100); },
                                   QStringLiteral("the projects are not listed"));
}

QString CloudJob::currentName() const {
    return KRNFile::instance()->currentProject().value(QLatin1String("name")).toString();
}

bool CloudJob::createInCloud(const QString& title, const QString& password) {
    if (!shown(welcome) || !click(QStringLiteral("New Project")) ||
        !shown(QStringLiteral("New Cloud Project")) || !click(QStringLiteral("New Project")) ||
        !shown(QStringLiteral("Please provide a project title!")) || !shoot(QStringLiteral("no-title")))
        return false;
    if (!password.isEmpty()) {
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(0));
        const QList<QQuickItem*> fields = m_driver.itemsOfType(QStringLiteral("DialogTextField"));
        m_driver.fill(fields.value(1), password);
        m_driver.fill(fields.value(2), password);
    }
    m_driver.fill(m_driver.itemNamed(QStringLiteral("projectTitle")), title);
    m_driver.press(Qt::Key_Return);
    return until([&] { return KRNFile::instance()->isOpened() && currentName() == title; },
                 QStringLiteral("the new project does not open")) &&
           gone(QStringLiteral("Project Title:"));
}

bool CloudJob::work() {
    const QString source = path(QStringLiteral("Yard.txt"));
    const QString text = QStringLiteral("What was said in the yard.\n");
    return writeFile(source, text) && importFiles({source}) &&
           expect(m_source.read(text), QStringLiteral("the text is not shown")) &&
           addKerno(QStringLiteral("Belonging")) &&
           expect(KRNFile::instance()->kernos().value(0).toMap().value(QStringLiteral("author")) ==
                      QStringLiteral("Ada Berger"),
                  QStringLiteral("the account's name is not that of the author"));
}

bool CloudJob::loseLink() {
    m_cloud.intercept("/v1/kernova/ticket", refuse);
    m_cloud.http().cutTunnels();
    if (!shown(lost) || !shoot(QStringLiteral("lost")))
        return false;
    m_cloud.expire();
    m_cloud.intercept({}, {});
    return gone(lost) &&
           until([] { return KRNFile::instance()->isOpened(); },
                 QStringLiteral("the project stays closed")) &&
           addKerno(QStringLiteral("Return")) && shoot(QStringLiteral("back"));
}

bool CloudJob::copyInCloud() {
    const auto giveName = [&](const QString& entry, const QString& name) {
        QQuickItem* field = click(entry) ? m_driver.itemNamed(QStringLiteral("saveAsName")) : nullptr;
        if (!field || !shoot(QStringLiteral("save-as")) || !m_driver.fill(field, name))
            return fail(QStringLiteral("no name can be given to ") + entry);
        m_driver.press(Qt::Key_Return);
        return gone(QStringLiteral("Save as:"));
    };
    return click(QStringLiteral("Export")) &&
           giveName(QStringLiteral("Export Project (Structure Only)"), QStringLiteral("Bones")) &&
           expect(currentName() == study, QStringLiteral("the part takes the project's place")) &&
           click(QStringLiteral("Project")) &&
           giveName(QStringLiteral("Save As..."), QStringLiteral("Copy")) &&
           until([&] { return currentName() == QStringLiteral("Copy"); },
                 QStringLiteral("the copy does not open")) &&
           expect(m_cloud.projectNames() ==
                      QStringList({study, QStringLiteral("Bones"), QStringLiteral("Copy")}),
                  m_cloud.projectNames().join(QLatin1Char(' '))) &&
           expect(KRNFile::instance()->kernos().size() == 2, QStringLiteral("the copy is not whole"));
}

bool CloudJob::download() {
    const QString fetched = path(QStringLiteral("Fetched.krn"));
    return click(QStringLiteral("Project")) && chooseProject(QStringLiteral("Download Project"), fetched) &&
           until([&] { return QFile::exists(fetched); }, QStringLiteral("no project is downloaded"));
}

// A reader looks at everything and changes nothing, by whatever way.
bool CloudJob::readOnly() {
    m_cloud.http().rewriteTunnels({{"\"owner\"", "\"read\" "}, {"\\\"owner\\\"", "\\\"read\\\" "}});
    if (!openDialog() || !click(study))
        return false;
    m_driver.press(Qt::Key_Return);
    const QString text = QStringLiteral("What was said in the yard.\n");
    const QString title = QStringLiteral("Belonging");
    const auto isOff = [&](const QString& entry) {
        return !m_driver.itemWithText(entry, 0) && m_driver.isShown(entry);
    };
    if (!until([&] { return currentName() == study && !KRNFile::instance()->canMutate(); },
               QStringLiteral("the project does not open for reading")) ||
        !gone(welcome) || !expect(m_source.read(text), QStringLiteral("the text is not shown")) ||
        !until([&] { return m_canvas.bubble(title) && !m_canvas.addButton()->isEnabled(); },
               QStringLiteral("a reader may add a kerno")))
        return false;
    // The text of the copy may still stand there for a moment.
    if (!until([&] { return m_source.select(QStringLiteral("in the yard")).isEmpty(); },
               QStringLiteral("a reader can't select")))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(title));
    m_driver.press(Qt::Key_K, Qt::ControlModifier);
    if (!shown(QStringLiteral("This project can be read only.")))
        return false;
    m_driver.click(m_canvas.bubble(title), Qt::RightButton);
    if (!shown(QStringLiteral("Overview")) || !shoot(QStringLiteral("reader")) ||
        !expect(isOff(QStringLiteral("Edit")) && isOff(QStringLiteral("Merge")) &&
                    isOff(QStringLiteral("Duplicate")) && isOff(QStringLiteral("Delete")),
                QStringLiteral("a reader may change a kerno")))
        return false;
    m_driver.press(Qt::Key_Escape);
    m_driver.click(m_driver.itemNamed(QStringLiteral("chatToggle")));
    return shown(QStringLiteral("No messages yet.")) &&
           expect(!m_driver.itemNamed(QStringLiteral("chatMessage"), 0),
                  QStringLiteral("a reader may write to others")) &&
           click(QStringLiteral("Groups")) &&
           expect(isOff(QStringLiteral("New/Change Group")), QStringLiteral("a reader may change groups")) &&
           expect(undoIndex() == 0 && KRNFile::instance()->totalHighlightsCount() == 0,
                  QStringLiteral("a reader has changed something"));
}

bool CloudJob::upload() {
    return chooseProject(QStringLiteral("Upload Project"), path(QStringLiteral("Fetched.krn"))) &&
           shown(QStringLiteral("Fetched")) && shoot(QStringLiteral("uploaded"));
}

bool CloudJob::remove() {
    if (!click(unwanted))
        return false;
    const bool answered = m_driver.during([&] { m_driver.press(Qt::Key_Delete); },
                                          [&] { return m_driver.answerMessageBox(QStringLiteral("Yes")); });
    return expect(answered, QStringLiteral("nobody asks before a project goes")) && gone(unwanted) &&
           expect(m_cloud.projectNames() == QStringList(QStringLiteral("Fetched")),
                  QStringLiteral("the project stays in the cloud"));
}

// It was fetched while it was open, and bears the mark of that.
bool CloudJob::openUploaded() {
    if (!click(QStringLiteral("Fetched")))
        return false;
    const bool asked = m_driver.during([&] { m_driver.clickText(QStringLiteral("Open Selected")); },
                                       [&] { return m_driver.answerMessageBox(QStringLiteral("Yes")); });
    return expect(asked, QStringLiteral("nobody asks whether the project is open elsewhere")) &&
           until([&] { return currentName() == QStringLiteral("Fetched"); },
                 QStringLiteral("what was uploaded does not open")) &&
           gone(welcome) &&
           expect(KRNFile::instance()->sources().size() == 1, QStringLiteral("the upload is not whole")) &&
           openDialog();
}

// An archive of another program becomes a project of the cloud.
bool CloudJob::convert() {
    const QString archive = path(QStringLiteral("Elsewhere.qdpx"));
    QFile document(QStringLiteral(KERNOVA_EXCHANGE_CORPUS "/other-program.qde"));
    QFile file(archive);
    if (!document.open(QIODevice::ReadOnly) || !file.open(QIODevice::WriteOnly))
        return fail(QStringLiteral("no archive"));
    file.write(samples::zip({{"project.qde", document.readAll()}, {"sources/a.txt", "The text of it all"}}));
    file.close();
    return chooseProject(QStringLiteral("Upload Project"), archive) &&
           shown(QStringLiteral("Convert REFI-QDA to Cloud Project")) && shoot(QStringLiteral("convert")) &&
           click(QStringLiteral("Convert and Save")) && shown(QStringLiteral("Picture sources")) &&
           shoot(QStringLiteral("converted")) && click(QStringLiteral("Open Project")) &&
           until([&] { return currentName() == elsewhere; },
                 QStringLiteral("what was converted stays closed")) &&
           gone(QStringLiteral("Open Project"));
}

bool CloudJob::mergeInCloud() {
    const QString merged = QStringLiteral("All of it");
    if (!click(QStringLiteral("Project")) || !click(QStringLiteral("Merge Projects")) ||
        !click(QStringLiteral("Add Project")) || !shown(QStringLiteral("Fetched")) ||
        !click(QStringLiteral("Fetched")) || !shoot(QStringLiteral("merge-choice")) ||
        !click(QStringLiteral("OK")) || !click(QStringLiteral("Next")) || !click(QStringLiteral("Merge")) ||
        !shown(QStringLiteral("Merged project title is required!")))
        return false;
    m_driver.fill(m_driver.itemNamed(QStringLiteral("mergeResult")), elsewhere);
    if (!click(QStringLiteral("Merge")) ||
        !shown(QStringLiteral("Project with this title already exists! Please rename the merge result.")) ||
        !shoot(QStringLiteral("merge-refused")))
        return false;
    m_driver.fill(m_driver.itemNamed(QStringLiteral("mergeResult")), merged);
    return click(QStringLiteral("Merge")) &&
           until([&] { return currentName() == merged; },
                 QStringLiteral("the merged project does not open")) &&
           gone(QStringLiteral("Merge Projects")) &&
           expect(KRNFile::instance()->sources().size() == 3, QStringLiteral("the merge has lost sources")) &&
           openDialog();
}

bool CloudJob::openDialog() {
    return click(QStringLiteral("Project")) && click(QStringLiteral("Open New or Existing")) &&
           showProjects();
}

bool CloudJob::openProtected() {
    if (!openDialog() || !shown(secret) || !click(secret))
        return false;
    m_driver.press(Qt::Key_Return);
    if (!shown(QStringLiteral("Password required")) || !shoot(QStringLiteral("password")))
        return false;
    m_driver.type(word);
    m_driver.press(Qt::Key_Return);
    return until([&] { return currentName() == secret; },
                 QStringLiteral("the protected project stays closed")) &&
           gone(QStringLiteral("Password required"));
}

bool CloudJob::signOut() {
    if (!openDialog())
        return false;
    QQuickItem* panel = m_driver.itemsOfType(QStringLiteral("DialogPanel")).value(0);
    m_driver.clickAt(panel, QPointF(panel->width() - 30, 38));
    return shown(QStringLiteral("Kernova Offline")) &&
           expect(KRNFile::instance()->dataHelper()->connection()->accessToken().isEmpty(),
                  QStringLiteral("the tokens are kept")) &&
           expect(m_driver.itemNamed(QStringLiteral("email"))->property("text") == ScriptedCloud::email(),
                  QStringLiteral("the email is not kept")) &&
           shoot(QStringLiteral("signed-out"));
}

bool CloudJob::lookAtDialogs() {
    for (const QSize& size : {QSize(980, 680), QSize(1920, 1080)}) {
        m_driver.mainWindow()->setGeometry(QRect(QPoint(0, 0), size));
        if (!until([&] { return m_driver.mainWindow()->size() == size; },
                   QStringLiteral("the window keeps its size")))
            return false;
        const auto look = [&](const QString& name) {
            shoot(QString::number(size.width()) + QLatin1Char('-') + name);
            const QStringList faults = layout::screenFaults(m_driver);
            return expect(faults.isEmpty(), name + QStringLiteral(": ") + faults.join(QStringLiteral("; ")));
        };
        if (!look(QStringLiteral("projects")) || !click(QStringLiteral("New Project")) ||
            !shown(QStringLiteral("New Cloud Project")))
            return false;
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(0));
        if (!look(QStringLiteral("new")))
            return false;
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(0));
        m_driver.press(Qt::Key_Escape);
        const QString source = path(QStringLiteral("Yard.txt"));
        if (!showProjects() || !createInCloud(study + QString::number(size.width()), {}) ||
            !writeFile(source, QStringLiteral("What was said.\n")) || !importFiles({source}) ||
            !click(QStringLiteral("Project")) || !click(QStringLiteral("Save As...")) ||
            !shown(QStringLiteral("Save as:")) || !look(QStringLiteral("save-as")) ||
            !click(QStringLiteral("Cancel")) || !gone(QStringLiteral("Save as:")) ||
            !click(QStringLiteral("Project")) || !click(QStringLiteral("Merge Projects")) ||
            !look(QStringLiteral("merge")) || !click(QStringLiteral("Add Project")) ||
            !click(QStringLiteral("Interviews of the winter, round 1")) ||
            !look(QStringLiteral("merge-choice")) || !click(QStringLiteral("OK")) ||
            !shown(QStringLiteral("There is no project \"Interviews of the winter, round 1\" any more.")) ||
            !look(QStringLiteral("merge-refused")))
            return false;
        m_driver.press(Qt::Key_Escape);
        if (!gone(QStringLiteral("Merge Projects")) || !openDialog())
            return false;
    }
    return true;
}
