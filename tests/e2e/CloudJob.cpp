#include "Job.h"

#include "SampleFiles.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "tests_support/ScriptedCloud.h"

#include <QFile>
#include <QQuickWindow>
#include <QSettings>

namespace {

const QString workRun = "work"_s;
const QString projectsRun = "projects"_s;
const QString looks = "looks-"_s;
const QString unwanted = "Left over"_s;
const QString text = "What was said in the yard.\n"_s;
const QString study = "Study"_s;
const QString elsewhere = "Elsewhere"_s;
const QString secret = "Secret"_s;
const QString word = "Öffne dich"_s;
const QString welcome = "Welcome to Kernova Cloud"_s;
const QString lost = "Connection lost, reconnecting..."_s;

HttpAnswer refuse(const HttpAsked&) {
    return {503, {}};
}

/// Works on a server of one's own: names it, signs in, makes and opens projects there, loses the link and
/// gets it back, and signs out. The looks of the dialogs are judged in both themes and at two sizes.
class CloudJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        nameService();
        if (!expect(m_cloud.start(), "the cloud's service does not start"_s))
            return false;
        m_cloud.addProject("What others do"_s, true);
        if (run == workRun)
            return nameServer() && signInToCloud() && createInCloud(study, {}) && work() && loseLink() &&
                   copyInCloud() && download() && readOnly();
        if (run.startsWith(looks)) {
            for (int number = 1; number <= 12; ++number)
                m_cloud.addProject("Interviews of the winter, round %1"_s.arg(number));
            return nameServer() && signInToCloud() && lookAtDialogs();
        }
        m_cloud.addProject(unwanted);
        const bool done = nameServer() && signInToCloud() && upload() && remove() && openUploaded() &&
                          convert() && mergeInCloud() && createInCloud(secret, word) && openProtected() &&
                          signOut();
        QSettings().setValue("darkTheme"_s, false);
        return done;
    }

private:
    bool nameServer() {
        if (!shown("Server..."_s) || !shoot("sign-in"_s) || !click("Server..."_s) ||
            !fill("server"_s, "http://example.org"_s) || !click("Save"_s) ||
            !shown("A server that is not on this computer is reached by https only."_s) ||
            !shoot("server-refused"_s) || !fill("server"_s, m_cloud.address()))
            return false;
        return click("Test"_s) && shown("The server answers."_s) && shoot("server"_s) && click("Save"_s) &&
               shown("Kernova Cloud"_s) &&
               expect(QSettings().value("cloudHost"_s) == m_cloud.address(), "the server is not stored"_s);
    }

    // By keys alone, but for the way to the first field.
    bool signInToCloud() {
        if (!fill("email"_s, ScriptedCloud::email()))
            return false;
        m_driver.press(Qt::Key_Tab);
        if (!enter("password"_s, "wrong"_s) || !shown("Email or password is wrong."_s) ||
            !shoot("wrong-password"_s) || !fill("password"_s, ScriptedCloud::password()))
            return false;
        m_driver.press(Qt::Key_Return);
        return showProjects() && gone("Sign In"_s) && shown("What others do"_s) && shoot("projects"_s);
    }

    bool showProjects() {
        return shown(welcome) && expect(m_driver.itemNamed("ownProjects"_s), "the projects are not listed"_s);
    }

    bool untilOpenIs(const QString& name) {
        return untilIs("open is"_s, name, [&] { return currentName(); }) && untilOpen() && gone(welcome);
    }

    bool createInCloud(const QString& title, const QString& password) {
        if (!shown(welcome) || !click("New Project"_s) || !shown("New Cloud Project"_s) ||
            !click("New Project"_s) || !shown("Please provide a project title!"_s) || !shoot("no-title"_s))
            return false;
        if (!password.isEmpty() && (!flip(0) || !fillField(1, password) || !fillField(2, password)))
            return false;
        return fill("projectTitle"_s, title) && (m_driver.press(Qt::Key_Return), untilOpenIs(title)) &&
               gone("Project Title:"_s);
    }

    bool work() {
        return importTexts({{"Yard"_s, text}}) && reads(text) && addKerno("Belonging"_s) &&
               expect(KRNFile::instance()->kernos().value(0).toMap().value("author"_s) == "Ada Berger"_s,
                      "the account's name is not that of the author"_s);
    }

    bool loseLink() {
        m_cloud.intercept("/v1/kernova/ticket", refuse);
        m_cloud.http().cutTunnels();
        if (!shown(lost) || !shoot("lost"_s))
            return false;
        m_cloud.expire();
        m_cloud.intercept({}, {});
        return gone(lost) &&
               until([] { return KRNFile::instance()->isOpened(); }, "the project stays closed"_s) &&
               addKerno("Return"_s) && shoot("back"_s);
    }

    bool copyInCloud() {
        const auto giveName = [&](const QString& entry, const QString& name) {
            return click(entry) && shown("Save as:"_s) && shoot("save-as"_s) && fill("saveAsName"_s, name) &&
                   (m_driver.press(Qt::Key_Return), gone("Save as:"_s));
        };
        return click("Export"_s) && giveName("Export Project (Structure Only)"_s, "Bones"_s) &&
               expect(currentName() == study, "the part takes the project's place"_s) && click("Project"_s) &&
               giveName("Save As..."_s, "Copy"_s) && untilOpenIs("Copy"_s) &&
               expect(m_cloud.projectNames() == QStringList({study, "Bones"_s, "Copy"_s}),
                      m_cloud.projectNames().join(QLatin1Char(' '))) &&
               expect(KRNFile::instance()->kernos().size() == 2, "the copy is not whole"_s);
    }

    bool download() {
        const QString fetched = path("Fetched.krn"_s);
        return click("Project"_s) && chooseProject("Download Project"_s, fetched) &&
               until([&] { return QFile::exists(fetched); }, "no project is downloaded"_s);
    }

    // A reader looks at everything and changes nothing, by whatever way.
    bool readOnly() {
        m_cloud.http().rewriteTunnels({{"\"owner\"", "\"read\" "}, {"\\\"owner\\\"", "\\\"read\\\" "}});
        if (!openDialog() || !click(study))
            return false;
        m_driver.press(Qt::Key_Return);
        const QString title = "Belonging"_s;
        const auto isOff = [&](const QString& entry) {
            return !m_driver.itemWithText(entry, 0) && m_driver.isShown(entry);
        };
        if (!until([&] { return currentName() == study && !KRNFile::instance()->canMutate(); },
                   "the project does not open for reading"_s) ||
            !gone(welcome) || !reads(text) ||
            !until([&] { return m_canvas.bubble(title) && !m_canvas.addButton()->isEnabled(); },
                   "a reader may add a kerno"_s))
            return false;
        if (!select("in the yard"_s))
            return false;
        m_source.dragSelectionTo(m_canvas.bubble(title));
        m_driver.press(Qt::Key_K, Qt::ControlModifier);
        if (!shown("This project can be read only."_s))
            return false;
        m_driver.click(m_canvas.bubble(title), Qt::RightButton);
        if (!shown("Overview"_s) || !shoot("reader"_s) ||
            !expect(isOff("Edit"_s) && isOff("Merge"_s) && isOff("Duplicate"_s) && isOff("Delete"_s),
                    "a reader may change a kerno"_s))
            return false;
        m_driver.press(Qt::Key_Escape);
        clickOn("chatToggle"_s);
        return shown("No messages yet."_s) &&
               expect(!m_driver.itemNamed("chatMessage"_s, 0), "a reader may write to others"_s) &&
               click("Groups"_s) && expect(isOff("New/Change Group"_s), "a reader may change groups"_s) &&
               expect(undoIndex() == 0 && KRNFile::instance()->totalHighlightsCount() == 0,
                      "a reader has changed something"_s);
    }

    bool upload() {
        return chooseProject("Upload Project"_s, path("Fetched.krn"_s)) && shown("Fetched"_s) &&
               shoot("uploaded"_s);
    }

    bool remove() {
        return click(unwanted) && answering([&] { m_driver.press(Qt::Key_Delete); }, "Yes"_s) &&
               gone(unwanted) &&
               untilIs("the cloud has"_s, QStringList("Fetched"_s), [&] { return m_cloud.projectNames(); });
    }

    // It was fetched while it was open, and bears the mark of that.
    bool openUploaded() {
        return click("Fetched"_s) && answering([&] { m_driver.clickText("Open Selected"_s); }, "Yes"_s) &&
               untilOpenIs("Fetched"_s) &&
               expect(KRNFile::instance()->sources().size() == 1, "the upload is not whole"_s) &&
               openDialog();
    }

    // An archive of another program becomes a project of the cloud.
    bool convert() {
        const QString archive = path("Elsewhere.qdpx"_s);
        QFile document(QStringLiteral(KERNOVA_EXCHANGE_CORPUS "/other-program.qde"));
        if (!document.open(QIODevice::ReadOnly) ||
            !writeFile(archive, samples::zip({{"project.qde", document.readAll()},
                                              {"sources/a.txt", "The text of it all"}})))
            return fail("no archive"_s);
        return chooseProject("Upload Project"_s, archive) && shown("Convert REFI-QDA to Cloud Project"_s) &&
               shoot("convert"_s) && click("Convert and Save"_s) && shown("Picture sources"_s) &&
               shoot("converted"_s) && click("Open Project"_s) && untilOpenIs(elsewhere) &&
               gone("Open Project"_s);
    }

    bool mergeInCloud() {
        const QString merged = "All of it"_s;
        if (!menu("Project"_s, "Merge Projects"_s) || !click("Add Project"_s) || !shown("Fetched"_s) ||
            !click("Fetched"_s) || !shoot("merge-choice"_s) || !click("OK"_s) || !click("Next"_s) ||
            !click("Merge"_s) || !shown("Merged project title is required!"_s) ||
            !fill("mergeResult"_s, elsewhere) || !click("Merge"_s) ||
            !shown("Project with this title already exists! Please rename the merge result."_s) ||
            !shoot("merge-refused"_s) || !fill("mergeResult"_s, merged))
            return false;
        return click("Merge"_s) && untilOpenIs(merged) && gone("Merge Projects"_s) &&
               expect(KRNFile::instance()->sources().size() == 3, "the merge has lost sources"_s) &&
               openDialog();
    }

    bool openDialog() { return menu("Project"_s, "Open New or Existing"_s) && showProjects(); }

    bool openProtected() {
        if (!openDialog() || !shown(secret) || !click(secret))
            return false;
        m_driver.press(Qt::Key_Return);
        return shown("Password required"_s) && shoot("password"_s) && fillField(0, word) && click("OK"_s) &&
               untilOpenIs(secret) && gone("Password required"_s);
    }

    bool signOut() {
        if (!openDialog())
            return false;
        QQuickItem* panel = m_driver.itemsOfType("DialogPanel"_s).value(0);
        m_driver.clickAt(panel, QPointF(panel->width() - 30, 38));
        return shown("Kernova Offline"_s) &&
               expect(KRNFile::instance()->dataHelper()->connection()->accessToken().isEmpty(),
                      "the tokens are kept"_s) &&
               expect(m_driver.itemNamed("email"_s)->property("text") == ScriptedCloud::email(),
                      "the email is not kept"_s) &&
               shoot("signed-out"_s);
    }

    bool lookAtDialogs() {
        for (const QSize& size : {QSize(980, 680), QSize(1920, 1080)}) {
            if (!resize(size) || !look("projects"_s) || !click("New Project"_s) ||
                !shown("New Cloud Project"_s) || !flip(0) || !look("new"_s) || !flip(0))
                return false;
            m_driver.press(Qt::Key_Escape);
            if (!showProjects() || !createInCloud(study + QString::number(size.width()), {}) ||
                !importTexts({{"Yard"_s, text}}) || !menu("Project"_s, "Save As..."_s) ||
                !shown("Save as:"_s) || !look("save-as"_s) || !click("Cancel"_s) || !gone("Save as:"_s) ||
                !menu("Project"_s, "Merge Projects"_s) || !look("merge"_s) || !click("Add Project"_s) ||
                !click("Interviews of the winter, round 1"_s) || !look("merge-choice"_s) || !click("OK"_s) ||
                !shown("There is no project \"Interviews of the winter, round 1\" any more."_s) ||
                !look("merge-refused"_s))
                return false;
            m_driver.press(Qt::Key_Escape);
            if (!gone("Merge Projects"_s) || !openDialog())
                return false;
        }
        return true;
    }

    ScriptedCloud m_cloud;
};

const Played<CloudJob> played{"cloud"_s, {workRun, looks + "dark"_s, projectsRun, looks + "light"_s}};

}  // namespace
