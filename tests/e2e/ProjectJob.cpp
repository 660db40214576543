#include "Job.h"

#include "project/KRNFile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickWindow>
#include <QSettings>
#include <algorithm>

namespace {

const QString password = "Öffne dich"_s;
const QString secretText = "Was hier steht, bleibt unter uns.\n"_s;
constexpr int recentLimit = 10;

QString answerOf(int number) {
    return "Answer number %1. "_s.arg(number).repeated(60).trimmed();
}

/// Makes and opens projects in all the ways of the open dialog: with a password, with questions, from the
/// list of recent ones, and files that can't be opened.
class ProjectJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        if (run == "recent"_s)
            fillRecent();
        if (!signIn())
            return false;
        if (run == "protect"_s)
            return protect();
        if (run == "unlock"_s)
            return unlock();
        if (run == "structured"_s)
            return makeStructured() && importByMarkers() && goThroughQuestions();
        return tidyRecent() && refuseBroken() && openEleventh() && signOut();
    }

private:
    bool startNew() {
        return click("New Project"_s) && shown("Structured Questions"_s) && fill("author"_s, "Ada Berger"_s);
    }

    bool protect() {
        const QString file = path("secret.krn"_s);
        QFile::remove(file);
        // The fields are the author, the password and its repetition.
        return startNew() && flip(0) && fillField(1, password) && fillField(2, "other"_s) &&
               shown("Passwords do not match."_s) && click("New Project"_s) &&
               shown("Please repeat password exactly!"_s) && shoot("mismatch"_s) && fillField(2, password) &&
               shown("Passwords match."_s) && shoot("match"_s) && chooseProject("New Project"_s, file) &&
               untilOpen() && importTexts({{"Geheim"_s, secretText}}) && reads(secretText);
    }

    bool unlock() {
        if (!click("secret"_s) || !click("Open Selected"_s) ||
            !shown("secret.krn is password protected."_s) || !shown("Password required"_s) ||
            !shoot("password-required"_s) || !fillField(0, "other"_s) || !click("OK"_s) ||
            !shown("Incorrect password"_s) || !shoot("incorrect"_s))
            return false;
        const QQuickItem* field = m_driver.itemsOfType("DialogTextField"_s).value(0);
        if (!expect(field->property("text").toString().isEmpty(), "a wrong password stays in its field"_s))
            return false;
        if (!fillField(0, password))
            return false;
        m_driver.press(Qt::Key_Return);
        return untilOpen() && reads(secretText) &&
               expect(KRNFile::instance()->sources().size() == 1, "a source is lost"_s) &&
               shoot("unlocked"_s);
    }

    bool makeStructured() {
        return createProject(path("questions.krn"_s), true) &&
               expect(!KRNFile::instance()->singleQuestionMode(), "the project has one question only"_s);
    }

    bool importByMarkers() {
        const QString file = path("answers.txt"_s);
        QString text;
        for (int number = 1; number <= 3; ++number)
            text += "Q: What is number %1?\nA: %2\n"_s.arg(number).arg(answerOf(number));
        if (!writeFile(file, text) || !addMenu("Import Source: Single File"_s) ||
            !shown("Question Marker:"_s))
            return false;
        // The fields are the title and the markers.
        return fillField(1, "Q:"_s) && fillField(2, "A:"_s) && chooseProject("Select File"_s, file) &&
               shown("What is number 3?"_s) && shoot("import-preview"_s) && click("Import"_s) &&
               gone("Question Marker:"_s) && shown("Source 1"_s) &&
               until([] { return KRNFile::instance()->questions().size() >= 3; }, "questions are lost"_s);
    }

    bool goThroughQuestions() {
        const QQuickItem* view = m_driver.itemNamed("answersView"_s);
        const auto scrolled = [view] { return view->property("contentY").toReal(); };
        QQuickItem* bar = m_driver.itemsOfType("QuestionNavigation"_s).value(0);
        const auto current = [bar] { return bar->property("currentIndex").toInt(); };
        if (!until([&] { return bar && bar->y() == 0; }, "there is no bar to go through the questions"_s))
            return false;
        const int first = current();
        shoot("questions"_s);
        m_driver.clickAt(bar, QPointF(bar->width() - 16, bar->height() / 2));
        if (!until([&] { return current() == first + 1 && scrolled() > 0; },
                   "the next question stays away"_s) ||
            !shoot("next-question"_s))
            return false;
        m_driver.clickAt(bar, QPointF(16, bar->height() / 2));
        return until([&] { return current() == first && qFuzzyIsNull(scrolled()); },
                     "the way back to the first question is lost"_s);
    }

    QStringList recentPaths() const {
        QStringList paths;
        const QString stored = QSettings().value("recentFiles"_s).toString();
        const QJsonArray entries = QJsonDocument::fromJson(stored.toUtf8()).array();
        for (const QJsonValue& entry : entries)
            paths << entry.toObject().value("path"_s).toString();
        return paths;
    }

    // A list as it may be after years: full, with projects that no longer exist.
    void fillRecent() const {
        QJsonArray entries;
        for (int number = 1; number <= recentLimit; ++number) {
            const QString name = "gone-%1"_s.arg(number);
            entries.append(
                QJsonObject{{"name"_s, name}, {"path"_s, path(name + ".krn"_s)}, {"backup"_s, QString()}});
        }
        QSettings settings;
        settings.setValue("recentFiles"_s, QString::fromUtf8(QJsonDocument(entries).toJson()));
        settings.sync();
    }

    bool tidyRecent() {
        QQuickItem* name = m_driver.itemWithText("gone-2"_s);
        QQuickItem* row = name ? name->parentItem()->parentItem() : nullptr;
        if (!expect(row, "the recent projects are not listed"_s) || !shoot("recent"_s))
            return false;
        m_driver.clickAt(row, QPointF(row->width() - 18, row->height() / 2));
        return gone("gone-2"_s) &&
               until([&] { return recentPaths().size() == recentLimit - 1; }, "the list is not stored"_s);
    }

    bool refuseBroken() {
        const QString broken = path("broken.krn"_s);
        const auto untouched = [&] {
            return expect(!KRNFile::instance()->isOpened() && !m_driver.isShown("Password required"_s),
                          "a file that can't be read is taken for a project"_s);
        };
        return click("gone-1"_s) && click("Open Selected"_s) &&
               shown("There is no project \"gone-1.krn\" any more."_s) && untouched() && shoot("missing"_s) &&
               expect(!QFile::exists(path("gone-1.krn"_s)), "a missing file is made"_s) &&
               writeFile(broken, "This is no project."_s.repeated(300)) &&
               chooseProject("Open Other..."_s, broken) &&
               shown("\"broken.krn\" is not a Kernova project, or it is damaged."_s) && untouched() &&
               shoot("broken"_s);
    }

    bool openEleventh() {
        const QString questions = path("questions.krn"_s);
        const QString eleventh = path("eleventh.krn"_s);
        if (!chooseProject("Open Other..."_s, questions) || !untilOpen() ||
            !until([&] { return recentPaths().size() == recentLimit; },
                   "the tenth project is not listed"_s) ||
            !menu("Project"_s, "Open New or Existing"_s) || !createProject(eleventh))
            return false;
        const auto dropped = [&] {
            const QStringList paths = recentPaths();
            return paths.size() == recentLimit && paths[0] == eleventh && paths[1] == questions &&
                   !paths.contains(path("gone-10.krn"_s));
        };
        return until(dropped, "the eleventh project does not drop the tenth from the list"_s);
    }

    // Nothing of the project is left on the window.
    bool signOut() {
        const auto title = [&] { return m_driver.mainWindow()->title(); };
        if (!until([&] { return title().endsWith("eleventh.krn"_s); },
                   "the title does not name the project"_s) ||
            !menu("Project"_s, "Open New or Existing"_s) || !shown("Open Selected"_s))
            return false;
        const QList<QQuickItem*> buttons = m_driver.itemsOfType("IconButton"_s);
        const auto leave = std::find_if(buttons.cbegin(), buttons.cend(), [](const QQuickItem* button) {
            return button->property("icon") == "sign-out"_s;
        });
        return expect(leave != buttons.cend() && m_driver.click(*leave), "there is no way to sign out"_s) &&
               shown("Sign In"_s) &&
               until([&] { return !title().contains(".krn"_s); },
                     "the title keeps a project that is closed"_s);
    }
};

const Played<ProjectJob> played{"project"_s, {"protect"_s, "unlock"_s, "structured"_s, "recent"_s}};

}  // namespace
