#include "models/QuestionAnswerMainModel.h"

#include "models/ProjectEvents.h"
#include "models/SourceModel.h"

#include <QDebug>
#include <QMutexLocker>
#include <QScopedValueRollback>
#include <QTime>
#include <QTimer>

QuestionAnswerMainModel::QuestionAnswerMainModel(DataHelper* helper, QObject* parent)
    : QuestionAnswerModelBase(helper, parent),
      m_bySource([](const QuestionAnswer& answer) { return answer.sourceId(); }), m_loader(helper) {
    addIndex(&m_bySource);
    connect(&m_loader, &TextLoader::arrived, this, &QuestionAnswerMainModel::takeTexts);
    connect(&m_loader, &TextLoader::progressed, this, &QuestionAnswerMainModel::textsProgressed);
    connect(&m_loader, &TextLoader::finished, this, &QuestionAnswerMainModel::onTextsFinished);
}

QuestionAnswer QuestionAnswerMainModel::answer(int sourceId, int questionId) {
    readTexts(sourceId);
    const QMutexLocker lock(&m_mutex);
    for (const Row* row : m_bySource.rows(sourceId)) {
        if (row->questionId() == questionId)
            return *row;
    }
    return QuestionAnswer();
}

QList<QuestionAnswer> QuestionAnswerMainModel::answers(int sourceId) {
    readTexts(sourceId);
    return arrivedAnswers(sourceId);
}

QList<QuestionAnswer> QuestionAnswerMainModel::arrivedAnswers(int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    return m_bySource.records(sourceId);
}

int QuestionAnswerMainModel::sourceIdAt(int row) const {
    const QMutexLocker lock(&m_mutex);
    return row >= 0 && row < items().size() ? items().at(row)->sourceId() : -1;
}

void QuestionAnswerMainModel::prefer(int sourceId) {
    m_shownSource = sourceId;
    m_loader.prefer(sourceId);
}

QHash<int, int> QuestionAnswerMainModel::lengthsBySource() const {
    const QMutexLocker lock(&m_mutex);
    QHash<int, int> lengths;
    for (const Row* row : items())
        lengths[row->sourceId()] += row->answerLength();
    return lengths;
}

QuestionAnswer QuestionAnswerMainModel::partialAnswer(int sourceId, int questionId, int start, int length) {
    const QuestionAnswer whole = answer(sourceId, questionId);
    if (whole.answerId() > 0 && start >= 0 && start < whole.answerLength() && length != 0)
        return QuestionAnswer(whole, start, length);
    return QuestionAnswer();
}

// The lists of all models go first.
void QuestionAnswerMainModel::refreshAsync() {
    qDebug() << "QuestionAnswerMainModel::doRefreshAsync()" << QTime::currentTime();
    if (!project() || !project()->isOpened())
        return;
    m_startsSoon = true;
    QTimer::singleShot(0, this, [this] {
        if (m_startsSoon)
            startLoading();
    });
}

void QuestionAnswerMainModel::startLoading() {
    m_startsSoon = false;
    m_notified.clear();
    QList<int> sourceIds;
    for (const Source& source : project()->sourceModel()->snapshot())
        sourceIds.append(source.id());
    m_loader.start(sourceIds, project()->textCipher());
    m_loader.prefer(m_shownSource);
}

bool QuestionAnswerMainModel::readTexts(int sourceId) {
    if (m_startsSoon)
        startLoading();
    return m_loader.readNow(sourceId);
}

bool QuestionAnswerMainModel::readAllTexts() {
    if (areTextsHere())
        return true;
    if (m_startsSoon)
        startLoading();
    return m_loader.readAllNow();
}

bool QuestionAnswerMainModel::removeByKey(int answerId) {
    if (isLoading())
        m_notified.insert(answerId);
    return QuestionAnswerModelBase::removeByKey(answerId);
}

void QuestionAnswerMainModel::removeByKeys(const QList<int>& answerIds) {
    if (isLoading())
        m_notified.unite(QSet<int>(answerIds.cbegin(), answerIds.cend()));
    QuestionAnswerModelBase::removeByKeys(answerIds);
}

void QuestionAnswerMainModel::takeTexts(int, const QList<QuestionAnswer>& answers) {
    const QMutexLocker lock(&m_mutex);
    const QScopedValueRollback<bool> taking(m_takesTexts, true);
    QList<QuestionAnswer> added;
    for (const QuestionAnswer& answer : answers) {
        if (m_notified.contains(answer.id()))
            continue;
        if (contains(answer.id()))
            addOrUpdate(answer);
        else
            added.append(answer);
    }
    appendRows(added);
}

void QuestionAnswerMainModel::onTextsFinished() {
    qDebug() << "QuestionAnswerMainModel::onTextsFinished" << rowCount() << QTime::currentTime();
    m_notified.clear();
    emit textsFinished();
    if (rowCount() > 0)
        announceInitialData();
}

void QuestionAnswerMainModel::onModelAdded(int, const QuestionAnswer& answer) {
    if (!m_takesTexts && isLoading())
        m_notified.insert(answer.id());
    emit modelAdded(answer);
}

void QuestionAnswerMainModel::onModelUpdated(int, const QuestionAnswer& answer, const QVector<int>&) {
    if (!m_takesTexts && isLoading())
        m_notified.insert(answer.id());
    emit modelUpdated(answer);
}

void QuestionAnswerMainModel::onFileClosed() {
    QuestionAnswerModelBase::onFileClosed();
    m_startsSoon = false;
    m_shownSource = 0;
    m_notified.clear();
    m_loader.stop();
    emit textsProgressed();
}
