#pragma once

#include "AppDriver.h"

#include <QString>

/// The first job of every researcher, played in the running application: a new project, an interview, a kerno, a
/// coded passage, undo and redo; and then, in a later run of the program, everything found again.
class FirstLightJob {
public:
    /// The project file and the screenshots go into `folder`; the interview is read from `sampleFile`.
    FirstLightJob(AppDriver& driver, const QString& folder, const QString& sampleFile);

    /// Plays the first run. Empty when all went well, else what went wrong.
    QString code();

    /// Plays the run after it: opens the project from the list of recent ones and compares what is there.
    QString reopen();

private:
    QString signIn();
    QString createProject();
    QString importSource();
    QString readSource();
    QString makeKerno();
    QString codePassage();
    QString undoAndRedo();
    QString codeIntoNewKerno();
    QString openRecent();
    QString compareProject();

    QQuickItem* answerText();
    QQuickItem* bubble(const QString& title);
    QString selectPassage(const QString& passage);
    QString dragSelectionTo(QQuickItem* target);
    int stripes();
    QString awaitCodings(int count, const QString& title);
    QString projectFile() const;

    AppDriver& m_driver;
    QString m_folder;
    QString m_sampleFile;
};
