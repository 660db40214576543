#pragma once

#include "Job.h"

/// Makes and opens projects in all the ways of the open dialog: with a password, with questions, from the
/// list of recent ones, and files that can't be opened.
class ProjectJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool protect();
    bool unlock();
    bool makeStructured();
    bool importByMarkers();
    bool goThroughQuestions();
    bool tidyRecent();
    bool refuseBroken();
    bool openEleventh();
    bool signOut();

    /// Opens the new mode of the open dialog and names the author.
    bool startNew();
    bool flip(int switchNumber);
    /// Fills the field with this number among the dialog's visible ones.
    bool fillField(int number, const QString& text);
    void fillRecent() const;
    QStringList recentPaths() const;
};
