#pragma once

#include "Job.h"

/// Brings texts of all kinds into a project: by the file dialog, from the clipboard, by dropping, and cut
/// into questions and answers; and gives up on a file that never ends.
class ImportJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool importKinds();
    bool importClipboard();
    bool dropFiles();
    bool importFolder();
    bool cancelBatch();
    bool previewQuestions();
    bool refuseBadFiles();
    bool cancelReading();

    bool openDialog(const QString& entry);
    bool writeBytes(const QString& name, const QByteArray& bytes);
    /// Waits until the project has a source of this title and text, in one of its answers.
    bool holds(const QString& title, const QString& text);
    /// Drops the files, and answers the summary, which has to tell of so many sources.
    bool drop(const QStringList& names, int imported, const std::function<bool()>& meanwhile = {});
};
