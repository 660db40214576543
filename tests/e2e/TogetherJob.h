#pragma once

#include "Job.h"
#include "tests_support/RealService.h"

/// Two people write to each other: two programs, each with its window, on one service. The host starts the
/// guest, which ends by itself.
class TogetherJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool host();
    bool guest();
    bool joinProject();
    bool send(const QString& message);
    bool untilMessages(int count);

    RealService m_service;
};
