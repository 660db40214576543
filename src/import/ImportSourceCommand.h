#pragma once

#include "records/Question.h"
#include "undo/FileManipulationCommand.h"

#include <QList>
#include <QString>
#include <QVariantList>

/// Makes a source of question and answer pairs, as `parseQuestions` gives them, with the questions that the
/// project lacks, and an empty answer to each question that the pairs don't cover. In a project in single
/// question mode the first pair's answer is the source's whole text. An empty list makes the command invalid.
class ImportSourceCommand : public FileManipulationCommand {
public:
    /// In a project of structured questions the source is named by its id alone; the title isn't used.
    ImportSourceCommand(const QString& sourceTitle, const QVariantList& questions, KRNFile* file,
                        QUndoCommand* parent = nullptr);

private:
    void importWholeText(const QString& sourceTitle, const QString& text);
    void importPairs(const QVariantList& pairs);
    /// The new questions among the texts, with a child command for each.
    QList<Question> addMissingQuestions(const QStringList& texts);
    void addSource(int sourceId, const QString& title);
    /// An `answerId` below 1 has the answer take an id of its own.
    void addAnswer(int answerId, int sourceId, int questionId, const QString& text);
};
