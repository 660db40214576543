#pragma once

#include "records/Question.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "undo/RecordCommands.h"

using AddAnswerCommand = AddRecordCommand<QuestionAnswer>;
using UpdateAnswerCommand = IModelUpdateFileManipulationCommand<QuestionAnswer>;

/// Deletes an answer with the highlights and memos in it.
class DeleteAnswerCommand : public RecordCommand<QuestionAnswer> {
public:
    DeleteAnswerCommand(int answerId, KRNFile* file, QUndoCommand* parent = nullptr);
    DeleteAnswerCommand(const QuestionAnswer& answer, KRNFile* file, QUndoCommand* parent = nullptr);

private:
    void addDependants();
};

/// Adds a question, and an empty answer to it for each source.
class AddQuestionCommand : public RecordCommand<Question> {
public:
    AddQuestionCommand(const Question& question, KRNFile* file, QUndoCommand* parent = nullptr);
};

using UpdateQuestionCommand = IModelUpdateFileManipulationCommand<Question>;

/// Deletes a question with all answers to it.
class DeleteQuestionCommand : public RecordCommand<Question> {
public:
    DeleteQuestionCommand(int questionId, KRNFile* file, QUndoCommand* parent = nullptr);
};

/// The title under which a source is added: a blank one becomes "Source" and the id.
QString titleOfNewSource(const QString& title, int sourceId);

/// Adds a source; with `addAnswers` also an empty answer for each question.
class AddSourceCommand : public RecordCommand<Source> {
public:
    AddSourceCommand(const Source& source, KRNFile* file, bool addAnswers, QUndoCommand* parent = nullptr);
};

/// Adds a source in which one question has a text, and every other an empty answer. Invalid without such a
/// question.
class AddAnsweredSourceCommand : public FileManipulationCommand {
public:
    AddAnsweredSourceCommand(const QString& title, int questionId, const QString& text, KRNFile* file,
                             QUndoCommand* parent = nullptr);

    void redo() override { redoChildren(); }
    void undo() override { undoChildren(); }
};

using UpdateSourceCommand = IModelUpdateFileManipulationCommand<Source>;

/// Deletes a source with its answers and its metadata.
class DeleteSourceCommand : public RecordCommand<Source> {
public:
    DeleteSourceCommand(int sourceId, KRNFile* file, QUndoCommand* parent = nullptr);
};
