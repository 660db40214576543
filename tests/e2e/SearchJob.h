#pragma once

#include "Job.h"

/// Asks the material: a search by each of its options, and what can be done with its results.
class SearchJob : public Job {
public:
    using Job::Job;
    bool play(const QString& run) override;

private:
    bool makeMaterial();
    bool openPanel();
    bool searchByOptions();
    bool searchSynonyms();
    bool restoreFromHistory();
    bool searchByCriteria();
    bool readOn();
    bool copyFromSeveral();
    bool codeHit();
    bool fillHistory();
    bool dock();

    bool search(const QString& term, int results);
    bool toggle(const QString& objectName);
    bool untilResults(int count);
    QList<QQuickItem*> results();
    QString textOf(QQuickItem* result);
    int offsetOf(QQuickItem* result);
    bool isOn(const QString& objectName);
};
