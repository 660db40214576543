#pragma once

#include "Job.h"

/// Goes through all screens of a large project in both themes, in the smallest window and in a whole screen,
/// and looks whether everything can be read.
class LooksJob : public Job {
public:
    using Job::Job;

    /// One for each theme, and one at twice the pixels. By `--run` and QT_SCALE_FACTOR others can be played,
    /// too, such as "light-x1.5".
    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool makeLargeProject(const QString& name);
    bool lookAtAll();
    bool lookAtMenus();
    bool lookAtNotes();
    bool lookAtViews();
    bool lookAtDialogs();
    bool lookAtEditBar();
    bool lookAtCodeWith();
    bool lookAtTable();
    bool lookAtReport();
    bool lookAtChat();
    bool lookAtSearch();
    bool lookAtQuery();
    bool lookAtProperties();
    bool lookAtOpening();
    bool lookAtSources();
    /// The editor of the shown text, which `entry` opens: at work, and when somebody else changes the text.
    bool lookAtEditor(const QString& entry);
    /// A project of questions with a text cut into answers.
    bool makeStructured(const QString& name);
    bool lookAtQuestions();
    bool lookAtPreview();
    bool filterSources();
    /// Takes a picture, and judges what is uppermost.
    bool look(const QString& name);
    /// Looks at the dialog that holds the text, and closes it by Esc.
    bool closeDialog(const QString& name, const QString& text);

    QString m_size;  ///< of the window, for the names of the pictures
};
