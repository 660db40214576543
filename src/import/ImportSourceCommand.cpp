#include "import/ImportSourceCommand.h"

#include "import/ImportedText.h"
#include "link/IdManager.h"
#include "models/QuestionModel.h"
#include "project/KRNFile.h"
#include "undo/SourceCommands.h"

#include <algorithm>

namespace {

QString textOf(const QVariant& pair, const char* key) {
    return pair.toMap().value(QString::fromLatin1(key)).toString();
}

/// The first question with exactly this text; -1 without one.
int indexOf(const QList<Question>& questions, const QString& text) {
    const auto found = std::find_if(questions.cbegin(), questions.cend(), [&text](const Question& question) {
        return question.question() == text;
    });
    return found == questions.cend() ? -1 : static_cast<int>(found - questions.cbegin());
}

}  // namespace

ImportSourceCommand::ImportSourceCommand(const QString& sourceTitle, const QVariantList& questions,
                                         KRNFile* file, QUndoCommand* parent)
    : FileManipulationCommand(file, parent) {
    if (questions.isEmpty())
        invalidate();
    else if (file->singleQuestionMode())
        importWholeText(sourceTitle, textOf(questions.first(), "answer"));
    else
        importPairs(questions);
}

void ImportSourceCommand::importWholeText(const QString& sourceTitle, const QString& text) {
    const int questionId = IdManager::instance()->maxQuestionId();
    const int sourceId = questionId < 1 ? 0 : IdManager::instance()->nextSourceId();
    if (sourceId < 1) {
        invalidate();
        return;
    }
    addAnswer(-1, sourceId, questionId, text);
    addSource(sourceId, sourceTitle);
}

void ImportSourceCommand::importPairs(const QVariantList& pairs) {
    const int sourceId = IdManager::instance()->nextSourceId();
    if (sourceId < 1) {
        invalidate();
        return;
    }
    addSource(sourceId, QString());

    QStringList questions;
    QStringList answers;
    for (const QVariant& pair : pairs) {
        const QString question = importedQuestion(textOf(pair, "question"));
        if (question.isEmpty())
            continue;
        questions.append(question);
        answers.append(textOf(pair, "answer"));
    }

    QList<Question> all = file()->questionListModel()->snapshot();
    all.append(addMissingQuestions(questions));
    if (!isValid())
        return;
    QList<Question> unanswered = all;
    QList<int> answerIds = IdManager::instance()->nextAnswerIds(unanswered.size());
    if (answerIds.size() < unanswered.size()) {
        invalidate();
        return;
    }
    for (int i = 0; i < questions.size(); ++i) {
        const int next = indexOf(unanswered, questions.at(i));
        if (next >= 0) {
            addAnswer(answerIds.takeFirst(), sourceId, unanswered.takeAt(next).questionId(), answers.at(i));
            continue;
        }
        // A question of the project that the text asks once more: its further answer isn't lost.
        const int asked = indexOf(all, questions.at(i));
        if (asked >= 0)
            addAnswer(-1, sourceId, all.at(asked).questionId(), answers.at(i));
    }
    for (const Question& question : qAsConst(unanswered))
        addAnswer(answerIds.takeFirst(), sourceId, question.questionId(), QString());
}

QList<Question> ImportSourceCommand::addMissingQuestions(const QStringList& texts) {
    const QuestionModel* const existing = file()->questionListModel();
    QStringList missing;
    for (const QString& text : texts) {
        if (!existing->hasQuestion(text))
            missing.append(text);
    }
    QList<int> ids = IdManager::instance()->nextQuestionIds(missing.size());
    if (ids.size() < missing.size()) {
        invalidate();
        return {};
    }
    int order = existing->maxQuestionOrder();
    QList<Question> added;
    for (const QString& text : qAsConst(missing)) {
        added.append(Question(ids.takeFirst(), text, ++order));
        new AddQuestionCommand(added.last(), file(), this);
    }
    return added;
}

void ImportSourceCommand::addSource(int sourceId, const QString& title) {
    new AddSourceCommand(Source(sourceId, title, QString(), QString(), now()), file(), false, this);
}

void ImportSourceCommand::addAnswer(int answerId, int sourceId, int questionId, const QString& text) {
    QuestionAnswer answer(answerId, questionId, sourceId, QString(), QString(), now());
    answer.setAnswer(importedText(text));
    new AddAnswerCommand(answer, file(), this);
}
