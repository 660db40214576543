#pragma once

#include "Job.h"

/// Brings a project over from another program, takes one there, and puts two together: by the open dialog and
/// the menus, with refusals on the way. The looks of the dialogs are judged, each run in one theme and size.
class ExchangeJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool makeProject(const QString& file);
    bool exportArchive(const QString& file);
    bool importArchive(const QString& archive, const QString& project);
    bool refuseArchive();
    bool mergeProjects(const QString& other, const QString& result);
    bool look(const QString& name);

    bool m_plain = true;
};
