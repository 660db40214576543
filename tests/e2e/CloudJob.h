#pragma once

#include "Job.h"
#include "tests_support/ScriptedCloud.h"

/// Works on a server of one's own: names it, signs in, makes and opens projects there, loses the link and
/// gets it back, and signs out. The looks of the dialogs are judged in both themes and at two sizes.
class CloudJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool nameServer();
    bool signInToCloud();
    bool createInCloud(const QString& title, const QString& password);
    bool work();
    bool loseLink();
    bool copyInCloud();
    bool download();
    bool readOnly();
    bool upload();
    bool remove();
    bool openUploaded();
    bool convert();
    bool mergeInCloud();
    bool openProtected();
    bool signOut();
    bool lookAtDialogs();

    bool openDialog();
    bool showProjects();
    QString currentName() const;

    ScriptedCloud m_cloud;
};
