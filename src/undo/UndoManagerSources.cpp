#include "undo/UndoManager.h"

#include "project/KRNFile.h"
#include "undo/MemoCommands.h"
#include "undo/SourceCommands.h"
#include "undo/SourceTable.h"

void UndoManager::addMemo(const Memo& memo) {
    performAndFinish([&] { return std::make_unique<AddMemoCommand>(memo, m_file); });
}

void UndoManager::updateMemo(const Memo& memo) {
    performAndFinish([&] { return std::make_unique<UpdateMemoCommand>(memo, m_file); });
}

void UndoManager::deleteMemo(int id) {
    performAndFinish([&] { return std::make_unique<DeleteMemoCommand>(id, m_file); });
}

void UndoManager::addSource(const Source& data, bool) {
    performAndFinish([&] { return std::make_unique<AddSourceCommand>(data, m_file, true); });
}

void UndoManager::deleteSource(int sourceId) {
    performAndFinish([&] { return std::make_unique<DeleteSourceCommand>(sourceId, m_file); });
}

void UndoManager::updateSourceIcon(int sourceId, const QString& icon) {
    performAndFinish([&] {
        Source source = m_file->source(sourceId);
        source.setIcon(icon);
        return std::make_unique<UpdateSourceCommand>(source, m_file);
    });
}

void UndoManager::updateSourceTitle(int sourceId, const QString& title) {
    performAndFinish([&] {
        Source source = m_file->source(sourceId);
        source.setTitle(title);
        return std::make_unique<UpdateSourceCommand>(source, m_file);
    });
}

void UndoManager::addQuestion(const Question& data, bool) {
    performAndFinish([&] { return std::make_unique<AddQuestionCommand>(data, m_file); });
}

void UndoManager::updateQuestion(const Question& data) {
    performAndFinish([&] { return std::make_unique<UpdateQuestionCommand>(data, m_file); });
}

void UndoManager::updateQuestionsOrder(const QVariantList&) {
    finish();
}

void UndoManager::deleteQuestion(int questionId, bool) {
    performAndFinish([&] { return std::make_unique<DeleteQuestionCommand>(questionId, m_file); });
}

void UndoManager::addAnswer(const QuestionAnswer& data) {
    performAndFinish([&] { return std::make_unique<AddAnswerCommand>(data, m_file); });
}

void UndoManager::updateAnswer(const QuestionAnswer& data, bool) {
    performAndFinish([&] { return std::make_unique<UpdateAnswerCommand>(data, m_file); });
}

bool UndoManager::importSourcesFromCSV(QObject* model) {
    SourceTable* const table = qobject_cast<SourceTable*>(model);
    if (!table || table->sourcesCount() == 0)
        return false;
    const bool imported = perform([&] { return table->importCommand(m_file); });
    finish();
    return imported;
}
