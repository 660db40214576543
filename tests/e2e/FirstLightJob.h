#pragma once

#include "Job.h"

/// The first job of every researcher: a new project, an interview, a kerno, a coded passage, undo and redo;
/// and then, in a later run of the program, everything found again.
class FirstLightJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override;

private:
    bool code();
    bool reopen();
    bool readIntroduction();
    bool importSource();
    bool codePassage();
    bool undoAndRedo();
    bool codeIntoNewKerno();
    bool openRecent();
    bool compareProject();
    bool selectPassage(const QString& passage);
    bool awaitCodings(int count, const QString& title);
};
