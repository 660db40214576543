#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceModel.h"
#include "project/AnswerCache.h"
#include "project/RecordMaps.h"

#include <QDebug>

namespace {

const QString idName = QStringLiteral("id");

}  // namespace

QVariantList KRNFile::sourceIds() const {
    return m_dataHelper->queryIds(reads::sourceIds(), wire::word(wire::Record::Source), idName);
}

QVariantList KRNFile::sources() const {
    return toMaps(m_dataHelper->findAll<Source>());
}

Source KRNFile::source(int sourceId) const {
    return sourceModel() ? sourceModel()->record(sourceId) : Source();
}

bool KRNFile::sourceExists(int sourceId) const {
    return source(sourceId).isValid();
}

QString KRNFile::sourceTitle(int sourceId) const {
    return source(sourceId).title();
}

QString KRNFile::titleOfSource(int sourceId) const {
    return sourceTitle(sourceId);
}

QVariantList KRNFile::answers(int sourceId) const {
    const QString& name = wire::name::questionAnswerWithQuestionQueryList;
    QVariantList list;
    for (const QJsonValue& element :
         m_dataHelper->queryValue(wire::answersWithQuestion(sourceId), name).toArray())
        list.append(readAnswer(element.toObject()));
    return list;
}

QuestionAnswer KRNFile::answer(int answerId) const {
    // One that hasn't arrived yet stands in the project all the same.
    return allTextsHere() || answerModel()->contains(answerId)
               ? answerModel()->record(answerId)
               : m_dataHelper->findById<QuestionAnswer>(answerId);
}

QVariantMap KRNFile::answer(int sourceId, int questionId) const {
    if (!isOpened())
        return {};
    const QVariantMap known = m_answerCache->find(sourceId, questionId);
    if (!known.isEmpty()) {
        qDebug() << "got cached";
        return known;
    }
    const QString& name = wire::name::questionAnswerWithQuestionQueryList;
    const QJsonArray list =
        m_dataHelper->queryValue(wire::answersWithQuestion(sourceId, questionId), name).toArray();
    if (list.isEmpty())
        return {};
    const QVariantMap answer = readAnswer(list.first().toObject());
    if (!answer.isEmpty())
        m_answerCache->insert(sourceId, questionId, answer);
    return answer;
}

// The members as they came, but the id under the name that screens use and the text deciphered.
QVariantMap KRNFile::readAnswer(const QJsonObject& element) const {
    const QString answerName = QStringLiteral("answer");
    QVariantMap map = element.toVariantMap();
    if (map.isEmpty())
        return map;
    map.insert(QStringLiteral("answerId"), map.take(idName));
    map.insert(answerName, decryptIfNeeded(map.value(answerName).toString()));
    return map;
}

QStringList KRNFile::answerAuthors() const {
    return m_dataHelper->queryAuthors(wire::word(wire::Record::QuestionAnswer));
}

QuestionAnswer KRNFile::partialAnswer(int sourceId, int questionId, int start, int length) const {
    return answerModel()->partialAnswer(sourceId, questionId, start, length);
}

QuestionAnswer KRNFile::partialAnswer(const QVariant& sourceId, const QVariant& questionId,
                                      const QVariant& start, const QVariant& length) const {
    return partialAnswer(sourceId.toInt(), questionId.toInt(), start.toInt(), length.toInt());
}

QVariantList KRNFile::questionIds() const {
    return m_dataHelper->queryIds(reads::questionIds(), wire::word(wire::Record::Question), idName);
}

QVariantList KRNFile::questions() const {
    return toMaps(m_dataHelper->findAll<Question>());
}

Question KRNFile::question(int questionId) const {
    return questionListModel() ? questionListModel()->record(questionId) : Question();
}

QString KRNFile::questionText(int questionId) const {
    return question(questionId).question();
}

bool KRNFile::hasQuestion(const QString& question) const {
    return questionListModel()->hasQuestion(question);
}
