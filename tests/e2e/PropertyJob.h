#pragma once

#include "Job.h"

/// Gives sources properties: new ones, predefined values, several values; renames and takes back in the
/// editor; and reads the overview.
class PropertyJob : public Job {
public:
    using Job::Job;
    bool play(const QString& run) override;

private:
    bool addQuickly();
    bool addPredefined();
    bool renameInEditor();
    bool giveSeveral();
    bool changeSource();
    bool readOverview();

    /// The row of the list whose field of that object name reads so.
    QQuickItem* rowOf(const char* type, const QString& field, const QString& text);
    bool enter(const QString& field, const QString& text);
    QStringList tags();
    bool untilTags(const QStringList& texts);
    bool isEnabled(const QString& objectName);
};
