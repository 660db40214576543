#pragma once

#include "Job.h"

/// Saves a project under another name, and makes projects of its sources and of its structure: from the
/// menus, and opened again from the open dialog.
class CopiesJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool makeProject(const QString& file);
    bool saveAs(const QString& file);
    bool exportPart(const QString& entry, const QString& file);
    /// Opens a project from the open dialog, over the one that is open.
    bool open(const QString& file, const QString& password = {});
    bool holds(const QString& file, int sources, int kernos, int codings);
};
