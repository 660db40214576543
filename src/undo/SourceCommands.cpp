#include "undo/SourceCommands.h"

#include "link/IdManager.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "project/Places.h"
#include "undo/Dependants.h"
#include "undo/HighlightCommands.h"
#include "undo/MemoCommands.h"
#include "undo/MetadataCommands.h"

#include <QCoreApplication>

namespace {

/// False when there are no ids for them.
bool addEmptyAnswers(const QList<Place>& places, KRNFile* file, QUndoCommand* parent) {
    QList<int> ids = IdManager::instance()->nextAnswerIds(places.size());
    if (ids.size() < places.size())
        return false;
    for (const auto& [sourceId, questionId] : places)
        new AddAnswerCommand(
            QuestionAnswer(ids.takeFirst(), questionId, sourceId, QString(), QString(), QDateTime()), file,
            parent);
    return true;
}

}  // namespace

DeleteAnswerCommand::DeleteAnswerCommand(int answerId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (takeStored(answerId))
        addDependants();
}

DeleteAnswerCommand::DeleteAnswerCommand(const QuestionAnswer& answer, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (take(answer))
        addDependants();
}

void DeleteAnswerCommand::addDependants() {
    const int sourceId = record().sourceId();
    const int questionId = record().questionId();
    const auto highlights = dependants::highlights(*file(), sourceId, questionId);
    const auto memos = dependants::memos(*file(), sourceId, questionId);
    if (!highlights || !memos) {
        invalidate();
        return;
    }
    new BatchDeleteHighlightsCommand(*highlights, file(), this);
    new BatchDeleteMemosCommand(*memos, file(), this);
}

AddQuestionCommand::AddQuestionCommand(const Question& question, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Save, file, parent, Order::SelfFirst) {
    Question added(question);
    factsOf<Question>().create(added, currentAuthor());
    if (!take(added))
        return;
    QList<Place> places;
    for (const Source& source : file->sourceModel()->snapshot())
        places.append({source.id(), added.id()});
    if (!addEmptyAnswers(places, file, this))
        invalidate();
}

DeleteQuestionCommand::DeleteQuestionCommand(int questionId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(questionId))
        return;
    if (!file->answerModel()->readAllTexts()) {
        invalidate();
        return;
    }
    for (const QuestionAnswer& answer : file->answerModel()->snapshot()) {
        if (answer.questionId() == questionId)
            new DeleteAnswerCommand(answer, file, this);
    }
}

QString titleOfNewSource(const QString& title, int sourceId) {
    const QString trimmed = title.trimmed();
    return trimmed.isEmpty() ? QCoreApplication::translate("AddSourceCommand", "Source %1").arg(sourceId)
                             : trimmed;
}

AddSourceCommand::AddSourceCommand(const Source& source, KRNFile* file, bool addAnswers, QUndoCommand* parent)
    : RecordCommand(Does::Save, file, parent, Order::SelfFirst) {
    Source added(source);
    const bool isNew = added.id() < 1;
    const QString author = isNew || added.author().isEmpty() ? currentAuthor() : added.author();
    factsOf<Source>().create(added, author);
    if (isNew)
        added.setTimestamp(now());
    added.setTitle(titleOfNewSource(added.title(), added.id()));
    if (!take(added) || !addAnswers)
        return;
    QList<Place> places;
    for (const Question& question : file->questionListModel()->snapshot())
        places.append({added.id(), question.id()});
    if (!addEmptyAnswers(places, file, this))
        invalidate();
}

AddAnsweredSourceCommand::AddAnsweredSourceCommand(const QString& title, int questionId, const QString& text,
                                                   KRNFile* file, QUndoCommand* parent)
    : FileManipulationCommand(file, parent) {
    const int sourceId =
        file->questionListModel()->contains(questionId) ? IdManager::instance()->nextSourceId() : 0;
    if (sourceId < 1) {
        invalidate();
        return;
    }
    for (const Question& question : file->questionListModel()->snapshot()) {
        QuestionAnswer answer(-1, question.id(), sourceId, QString(), QString(), now());
        if (question.id() == questionId)
            answer.setAnswer(text);
        new AddAnswerCommand(answer, file, this);
    }
    new AddSourceCommand(Source(sourceId, title, QString(), QString(), now()), file, false, this);
}

DeleteSourceCommand::DeleteSourceCommand(int sourceId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(sourceId))
        return;
    if (!file->answerModel()->readTexts(sourceId)) {
        invalidate();
        return;
    }
    for (const QuestionAnswer& answer : file->answerModel()->answers(sourceId))
        new DeleteAnswerCommand(answer, file, this);
    for (const SourceMetadata& link : file->metadataModel()->linksOfSource(sourceId))
        new DeleteMetadataCommand(link, file, this);
}
