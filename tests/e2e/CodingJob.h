#pragma once

#include "Job.h"

/// Codes passages of a text with letters beyond the basic plane: overlaps, keys, stripes, and memos.
class CodingJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override;

private:
    bool readSource();
    bool codeOverlapping();
    bool codeTwice();
    bool codeByKey();
    bool hoverStripe();
    bool removeHighlight();
    bool writeMemo();
    bool editMemo();
    bool removeMemo();

    bool select(const QString& passage);
    bool codeInto(const QString& passage, const QString& title);
    bool untilStripes(int count);
    /// What the coding of a kerno with this number, in the order of the text, holds.
    QString coded(const QString& title, int number = 0);
    QList<int> stripeIds();
};
