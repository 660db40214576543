#include "project/ModelInstantiator.h"

#include "link/IdManager.h"
#include "models/ProjectEvents.h"
#include "models/QuestionModel.h"

Kerno ModelInstantiator::kerno(bool assignNewId) {
    Kerno kerno;
    kerno.setTitle(tr("Untitled", "Kerno title"));
    if (assignNewId)
        kerno.setKernoId(IdManager::instance()->nextKernoId());
    return kerno;
}

Question ModelInstantiator::question(bool assignNewId) {
    Question question;
    if (assignNewId)
        question.setQuestionId(IdManager::instance()->nextQuestionId());
    const ProjectEvents* project = ProjectEvents::current();
    const QuestionModel* questions = project ? project->questionListModel() : nullptr;
    question.setQuestionOrder(questions ? questions->maxQuestionOrder() + 1 : 1);
    return question;
}

Highlight ModelInstantiator::highlight() {
    Highlight highlight;
    highlight.setTimestamp(QDateTime::currentDateTime());
    return highlight;
}

Memo ModelInstantiator::memo() {
    Memo memo;
    memo.setTimestamp(QDateTime::currentDateTime());
    return memo;
}

Source ModelInstantiator::source() {
    return Source();
}

SourceMetadataValue ModelInstantiator::sourceMetadataValue() {
    SourceMetadataValue value;
    value.setValueId(IdManager::instance()->nextSourceMetadataValueId());
    return value;
}

ChatMessage ModelInstantiator::chatMessage() {
    ChatMessage message;
    message.setChatMessageId(IdManager::instance()->nextChatMessageId());
    return message;
}
