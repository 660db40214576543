#pragma once

#include "Job.h"
#include "records/Kerno.h"

/// Works in the views of the kernos: the tree, the hierarchy and the overlaps, with their quotes beside them.
class ViewsJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override;

private:
    bool makeProject();
    bool code(const QString& passage, const QString& title);

    bool openTree();
    bool nestInTree();
    bool codeInTree();
    bool walkTree();

    bool openHierarchy();
    bool selectInHierarchy();
    bool codeQuote();
    bool addChild();
    bool removeChild();
    bool leaveHierarchy();

    bool openOverlaps();
    bool chooseSecond();
    bool copyQuotes();
    bool leaveOverlaps();

    /// The label of the tree that bears the title, or null.
    QQuickItem* label(const QString& title);
    /// The texts of the quotes, once all of them stand.
    QStringList quotes();
    bool untilQuotes(const QStringList& texts);
    QStringList codedIn(const QString& title) const;
    Kerno kerno(const QString& title) const;
};
