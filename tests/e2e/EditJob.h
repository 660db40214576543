#pragma once

#include "Job.h"

/// Edits texts with coded passages around and in the edits, finds words in them, and keeps the questions of a
/// project.
class EditJob : public Job {
public:
    using Job::Job;

    static QStringList runs();

    bool play(const QString& run) override;

private:
    bool makeSource();
    bool code(const QString& passage, const QString& title);
    bool openEditor();
    bool editAndSave();
    bool goBackAndForth();
    /// Somebody else changes the text meanwhile.
    bool keepBoth();
    bool find();
    bool zoom();
    bool fillBlank();
    bool refuseHtml();
    bool askQuestions();
    bool orderQuestions();
    bool answerQuestion();

    /// What the project has stored: the source's text, and in it what is coded into the two kernos.
    bool stored(const QString& text, const QString& first, const QString& second);
    /// Of the dialog of the questions, from top to bottom.
    QList<QQuickItem*> rows();
    QStringList questions();

    SourcePage m_editor{m_driver, QStringLiteral("editedText")};
};
