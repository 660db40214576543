#include "models/QuestionAnswerMainModel.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"

#include <QDebug>
#include <QMutexLocker>
#include <QTime>

QuestionAnswerMainModel::QuestionAnswerMainModel(DataHelper* helper, QObject* parent)
    : QuestionAnswerModelBase(helper, parent),
      m_bySource([](const QuestionAnswer& answer) { return answer.sourceId(); }) {
    addIndex(&m_bySource);
    connect(this, &QuestionAnswerMainModel::dataFetched, this, &QuestionAnswerMainModel::onDataFetched);
}

QuestionAnswer QuestionAnswerMainModel::answer(int sourceId, int questionId) const {
    const QMutexLocker lock(&m_mutex);
    for (const Row* row : m_bySource.rows(sourceId)) {
        if (row->questionId() == questionId)
            return *row;
    }
    return QuestionAnswer();
}

QList<QuestionAnswer> QuestionAnswerMainModel::answers(int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    return m_bySource.records(sourceId);
}

QHash<int, int> QuestionAnswerMainModel::lengthsBySource() const {
    const QMutexLocker lock(&m_mutex);
    QHash<int, int> lengths;
    for (const Row* row : items())
        lengths[row->sourceId()] += row->answerLength();
    return lengths;
}

QuestionAnswer QuestionAnswerMainModel::partialAnswer(int sourceId, int questionId, int start,
                                                      int length) const {
    const QuestionAnswer whole = answer(sourceId, questionId);
    if (whole.answerId() > 0 && start >= 0 && start < whole.answerLength() && length != 0)
        return QuestionAnswer(whole, start, length);
    return QuestionAnswer();
}

void QuestionAnswerMainModel::refreshAsync() {
    qDebug() << "QuestionAnswerMainModel::doRefreshAsync()" << QTime::currentTime();
    if (!dataHelper())
        return;
    const QString query =
        sourceId() != 0 ? reads::answersOfSource(sourceId()) : DataHelper::listText<QuestionAnswer>();
    m_read.send(dataHelper(), query, this, [this](const QJsonObject& data) {
        const QString key = wire::operationName(QuestionAnswer::record(), wire::Operation::QueryList);
        emit dataFetched(DataHelper::records<QuestionAnswer>(data, {key}));
    });
}

void QuestionAnswerMainModel::onFileClosed() {
    QuestionAnswerModelBase::onFileClosed();
    m_read.forget();
}

void QuestionAnswerMainModel::onDataFetched(QList<QuestionAnswer> data) {
    qDebug() << "QuestionAnswerMainModel::onDataFetched" << data.size() << QTime::currentTime();
    setData(data);
}

void QuestionAnswerMainModel::onModelAdded(int, const QuestionAnswer& answer) {
    emit modelAdded(answer);
}

void QuestionAnswerMainModel::onModelUpdated(int, const QuestionAnswer& answer, const QVector<int>&) {
    emit modelUpdated(answer);
}
