#pragma once

#include "Job.h"

/// Goes through all screens of a large project in both themes, in the smallest window and in a whole screen,
/// and looks whether everything can be read.
class LooksJob : public Job {
public:
    using Job::Job;

    /// One for each theme, and one at twice the pixels.
    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool makeLargeProject(const QString& name);
    bool lookAtAll();
    bool lookAtMenus();
    bool lookAtNotes();
    bool lookAtViews();
    bool lookAtDialogs();
    bool lookAtCodeWith();
    bool lookAtChat();
    bool lookAtSearch();
    bool lookAtQuery();
    bool lookAtProperties();
    bool lookAtOpening();
    bool lookAtSources();
    bool filterSources();
    /// Takes a picture, and judges what is uppermost.
    bool look(const QString& name);
    /// Looks at the dialog that holds the text, and closes it by Esc.
    bool closeDialog(const QString& name, const QString& text);

    QString m_size;  ///< of the window, for the names of the pictures
};
