#pragma once

#include "AppDriver.h"
#include "CanvasPage.h"
#include "SourcePage.h"

#include <QStringList>

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
    bool until(const std::function<bool()>& condition, const QString& what, int milliseconds = 15000);
    /// Waits until the text is read somewhere, or no longer.
    bool shown(const QString& text);
    bool gone(const QString& text);
    bool click(const QString& text);
    bool shoot(const QString& name);
    /// The visible item of that object name in `item`, or null.
    static QQuickItem* partOf(QQuickItem* item, const QString& objectName);
    /// Chooses an entry of a combo box.
    bool choose(QQuickItem* box, const QString& entry);

    // The program

    /// Names the service beside this program for helpers that start one of their own.
    static void nameService();
    /// Signs in to local work.
    bool signIn();
    /// Has the open dialog, in either mode, take a file by its file dialog, which `button` opens.
    bool chooseProject(const QString& button, const QString& path);
    /// Makes a project of one question, or of structured ones, without a password, and waits until it is
    /// open.
    bool createProject(const QString& path, bool structured = false);
    bool untilOpen();
    /// By the preferences of an open project.
    bool chooseTheme(bool dark);
    bool importFiles(const QStringList& paths) {
        return importBy(QStringLiteral("Import Source: Select File(s)"), paths);
    }
    /// By an entry of the add menu that asks for files or for a folder. `told` becomes what it tells in the
    /// end.
    bool importBy(const QString& menuEntry, const QStringList& paths, QString* told = nullptr);
    /// Makes a kerno by the add button and its dialog.
    bool addKerno(const QString& title);
    /// Gives the kerno whose dialog has come up a title.
    bool nameNewKerno(const QString& title);
    /// Imports a text, makes a kerno, and codes those words with it by a drag.
    bool codePassage(const QString& text, const QString& words);
    /// Closes the dialog that comes up for a kerno that has come or come back.
    bool closeProperties();
    /// Goes a step back or forth, by keys.
    bool undo();
    bool redo();
    int undoIndex() const;
    bool untilUndoIndex(int index);
    bool writeFile(const QString& path, const QString& text);
    QString path(const QString& name) const { return m_folder + QLatin1Char('/') + name; }

    AppDriver& m_driver;
    Session& m_session;
    CanvasPage m_canvas;
    SourcePage m_source;

private:
    QString m_folder;
    QString m_failure;
};
