#pragma once

#include "Job.h"

/// Makes groups in the editor, puts kernos into them, and has the canvas show those of ticked groups alone.
class GroupsJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override;

private:
    bool makeGroups();
    bool joinGroups();
    bool filter();
    bool changeWhileFiltered();

    /// Ticks or unticks an entry of the groups menu.
    bool tick(const QString& entry);
    /// Whether these bubbles are drawn and no others.
    bool shows(const QStringList& titles);
    /// Opens a kerno's properties, clicks at these groups and saves.
    bool toggleGroups(const QString& kerno, const QStringList& groups);
};
