#include "undo/UndoManager.h"

#include "project/KRNFile.h"
#include "undo/MemoCommands.h"
#include "undo/SourceCommands.h"

void UndoManager::addMemo(const Memo& memo) {
    performAndFinish([&] { return new AddMemoCommand(memo, m_file); });
}

void UndoManager::updateMemo(const Memo& memo) {
    performAndFinish([&] { return new UpdateMemoCommand(memo, m_file); });
}

void UndoManager::deleteMemo(int id) {
    performAndFinish([&] { return new DeleteMemoCommand(id, m_file); });
}

void UndoManager::addSource(const Source& data, bool) {
    performAndFinish([&] { return new AddSourceCommand(data, m_file, true); });
}

void UndoManager::deleteSource(int sourceId) {
    performAndFinish([&] { return new DeleteSourceCommand(sourceId, m_file); });
}

void UndoManager::updateSourceIcon(int sourceId, const QString& icon) {
    performAndFinish([&] {
        Source source = m_file->source(sourceId);
        source.setIcon(icon);
        return new UpdateSourceCommand(source, m_file);
    });
}

void UndoManager::updateSourceTitle(int sourceId, const QString& title) {
    performAndFinish([&] {
        Source source = m_file->source(sourceId);
        source.setTitle(title);
        return new UpdateSourceCommand(source, m_file);
    });
}

void UndoManager::addQuestion(const Question& data, bool) {
    performAndFinish([&] { return new AddQuestionCommand(data, m_file); });
}

void UndoManager::updateQuestion(const Question& data) {
    performAndFinish([&] { return new UpdateQuestionCommand(data, m_file); });
}

void UndoManager::updateQuestionsOrder(const QVariantList&) {
    finish();
}

void UndoManager::deleteQuestion(int questionId, bool) {
    performAndFinish([&] { return new DeleteQuestionCommand(questionId, m_file); });
}

void UndoManager::addAnswer(const QuestionAnswer& data) {
    performAndFinish([&] { return new AddAnswerCommand(data, m_file); });
}

void UndoManager::updateAnswer(const QuestionAnswer& data, bool) {
    performAndFinish([&] { return new UpdateAnswerCommand(data, m_file); });
}
