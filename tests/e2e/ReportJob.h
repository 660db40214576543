#pragma once

#include "Job.h"

#include <QVariant>

class ReportViewer;

/// Makes reports and a word cloud from the menu to the page, gives one up in the middle, and looks at them.
/// Queries in one pane and in two, and makes a report of each.
class ReportJob : public Job {
public:
    using Job::Job;
    bool play(const QString& run) override;

private:
    bool makeMaterial();
    bool makeReport();
    bool queryInOnePane();
    bool queryInTwoPanes();
    bool makeQueryReports();
    bool cancelReport();
    bool makeWordCloud();

    bool switchOn(int index);
    bool chooseInMenu(const QString& entry);
    /// Waits for the viewer, works with its page, and closes it.
    bool inViewer(const std::function<bool()>& work);
    /// What a script in the page gives.
    QVariant ask(const QString& script);
    bool shootPage(const QString& name);
    bool noFolderLeft();
    /// The titles of the kernos in a pane, each followed by its number of quotes.
    QString kernosOf(const QString& pane);
    bool untilOrder(const QString& left, const QString& right);

    ReportViewer* m_viewer = nullptr;
};
