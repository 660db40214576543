#pragma once

#include "AppDriver.h"
#include "CanvasPage.h"
#include "SourcePage.h"

#include <QStringList>
#include <memory>
#include <vector>

class Session;

/// A piece of a researcher's work, played in the running program. A job may take several runs of the program,
/// one after another in the same folder and with the same settings.
///
/// A step gives whether it came out as it should. The first that doesn't is told by `failure()`, so steps are
/// joined by `&&`.
class Job {
public:
    /// Files go into `folder`. The driver and the session outlive the job.
    Job(AppDriver& driver, Session& session, const QString& folder);
    virtual ~Job() = default;
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    /// Plays one run, from the first dialog on.
    virtual bool play(const QString& run) = 0;

    QString failure() const { return m_failure; }

protected:
    bool fail(const QString& what);
    bool expect(bool holds, const QString& what) { return holds || fail(what); }
    /// Waits for the condition; `what` says what is missing when it doesn't come.
    bool until(const std::function<bool()>& condition, const QString& what);
    /// Waits until `actual` gives what is wanted; tells what it gave else.
    template <typename Value, typename Actual>
    bool untilIs(const QString& what, const Value& wanted, const Actual& actual) {
        if (AppDriver::waitFor([&] { return actual() == wanted; }))
            return true;
        QString told;
        QDebug(&told).nospace() << actual() << ", not " << wanted;
        return fail(what + ": "_s + told);
    }
    /// Waits until the text is read somewhere, or no longer.
    bool shown(const QString& text);
    bool gone(const QString& text);
    bool shoot(const QString& name);
    /// Waits until a bubble of that title is drawn, at that level, or at any; or until none is.
    bool untilBubble(const QString& title, int level = -1);
    bool untilNoBubble(const QString& title);
    /// Waits until these bubbles are drawn, and of `all` no others.
    bool untilAlone(const QStringList& titles, const QStringList& all);
    /// Waits until the panel shows the text.
    bool reads(const QString& text);
    /// Takes a picture, and judges whether everything of what is uppermost can be read. What moves all the
    /// time doesn't stand still for it.
    bool look(const QString& name, bool moving = false);
    bool resize(const QSize& size);

    bool click(const QString& text);
    /// The visible item of that object name.
    bool clickOn(const QString& objectName, Qt::MouseButton button = Qt::LeftButton);
    /// The switch of a label of that object name.
    bool toggle(const QString& objectName);
    /// The switch, and the field, with this number among those that are seen.
    bool flip(int number);
    bool fillField(int number, const QString& text);
    /// The field of that object name.
    bool fill(const QString& objectName, const QString& text);
    /// The visible item of that object name in `item`, or null.
    static QQuickItem* partOf(QQuickItem* item, const QString& objectName);
    /// Whether an item of that object name or text, or a part of it, has the keyboard; and waits for it.
    bool hasFocus(const QString& nameOrText);
    bool untilFocus(const QString& nameOrText);
    /// Types into the field of that object name, which gets the keyboard by itself, and ends with Return.
    bool enter(const QString& objectName, const QString& text);
    /// Chooses an entry of a combo box.
    bool choose(QQuickItem* box, const QString& entry);
    /// Chooses an entry of the menu of that button, and takes a picture of it by the way.
    bool menu(const QString& button, const QString& entry, const QString& picture = {});
    bool addMenu(const QString& entry);
    bool kernoMenu(const QString& title, const QString& entry);
    /// Does `action`, and answers the message box that comes of it. Its text has to be `told`, where that is
    /// given.
    bool answering(const std::function<void()>& action, const QString& button, const QString& told = {});

    // The program

    /// Names the service beside this program for helpers that start one of their own.
    static void nameService();
    /// Signs in to local work.
    bool signIn();
    /// Has a file dialog, which `button` opens, take a file. Where something is `told` then, asks again until
    /// it is: the dialog may give no file for a name that it hasn't listed yet.
    bool chooseProject(const QString& button, const QString& path, const QString& told = {});
    /// Makes a project of one question, or of structured ones, without a password, and waits until it is
    /// open.
    bool createProject(const QString& path, bool structured = false);
    bool untilOpen();
    /// Of the open project: its file, or its title in the cloud.
    QString currentName() const;
    /// Leaves the open project for the open dialog.
    bool showOpenDialog();
    /// By the preferences of an open project.
    bool chooseTheme(bool dark);
    bool importFiles(const QStringList& paths) { return importBy("Import Source: Select File(s)"_s, paths); }
    /// Writes a text file of each title, and imports them.
    bool importTexts(const QList<QPair<QString, QString>>& titlesAndTexts);
    /// By an entry of the add menu that asks for files or for a folder. `told` becomes what it tells in the
    /// end.
    bool importBy(const QString& menuEntry, const QStringList& paths, QString* told = nullptr);
    /// Makes a kerno by the add button and its dialog, and drags it to a place in canvas units.
    bool addKerno(const QString& title);
    bool addKerno(const QString& title, const QPointF& place);
    /// Gives the kerno whose dialog has come up a title.
    bool nameNewKerno(const QString& title);
    /// Selects a passage of the text that was read, and drags it to the bubble of that title.
    bool select(const QString& passage);
    bool code(const QString& passage, const QString& title);
    /// Imports a text, makes a kerno, and codes those words with it by a drag.
    bool codePassage(const QString& text, const QString& words);
    /// The passages that are coded with the kerno, in their order.
    static QStringList coded(const QString& title);
    /// Closes the dialog that comes up for a kerno that has come or come back.
    bool closeProperties();
    /// Goes a step back or forth, by keys.
    bool undo();
    bool redo();
    int undoIndex() const;
    bool untilUndoIndex(int index);
    bool writeFile(const QString& path, const QByteArray& bytes);
    bool writeFile(const QString& path, const QString& text) { return writeFile(path, text.toUtf8()); }
    QString path(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

    AppDriver& m_driver;
    Session& m_session;
    CanvasPage m_canvas;
    SourcePage m_source;

private:
    QString m_folder;
    QString m_failure;
};

/// A job and its runs of the program; those of `killed` end by a kill, not by themselves.
struct JobEntry {
    QString name;
    QStringList runs;
    QStringList killed;
    std::unique_ptr<Job> (*make)(AppDriver&, Session&, const QString& folder);
};

/// All jobs of this program.
std::vector<JobEntry>& jobs();

/// Makes `Kind` a job that is played under this name.
template <typename Kind> struct Played {
    Played(const QString& name, const QStringList& runs, const QStringList& killed = {}) {
        const auto make = [](AppDriver& driver, Session& session,
                             const QString& folder) -> std::unique_ptr<Job> {
            return std::make_unique<Kind>(driver, session, folder);
        };
        jobs().push_back({name, runs, killed, make});
    }
};
