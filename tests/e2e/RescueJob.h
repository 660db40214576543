#pragma once

#include "Job.h"

/// What is left after a crash of the program, and work that goes on after a crash of its service.
class RescueJob : public Job {
public:
    using Job::Job;

    static QStringList runs();
    /// The run that ends by the kill of the program itself.
    static QString killedRun();

    bool play(const QString& run) override;

private:
    bool crash();
    bool askAboutLock();
    bool outliveService();
    bool openSelected();
    bool openAnswering(const QString& button);
};
