#include "models/SourceModel.h"

#include "link/DataHelper.h"
#include "models/BatchOperationManager.h"
#include "models/KernoModel.h"
#include "models/ModelDelays.h"
#include "models/ProjectEvents.h"
#include "models/QuestionAnswerMainModel.h"
#include "wire/QueryText.h"

#include <QDebug>
#include <QMutexLocker>
#include <QTimer>

namespace {

int percentage(qint64 coded, qint64 total) {
    return total < 1 ? 0 : static_cast<int>(static_cast<double>(coded) * 100.0 / static_cast<double>(total));
}

}  // namespace

SourceModel::SourceModel(DataHelper* helper, QObject* parent) : IModelList(helper, parent) {
    connect(this, &SourceModel::dataFetched, this, &SourceModel::onDataFetched);
    ProjectEvents* events = project();
    if (!events)
        return;
    const auto later = &SourceModel::delayedUpdateAllCodingStatsAsync;
    // What was on its way when the link was lost has no answer.
    if (helper)
        connect(helper, &DataHelper::wsConnected, this, later);
    if (KernoModel* kernos = events->kernoModel()) {
        connect(kernos, &QAbstractItemModel::dataChanged, this, later);
        connect(kernos, &QAbstractItemModel::modelReset, this, later);
        connect(kernos, &QAbstractItemModel::rowsInserted, this, later);
        connect(kernos, &QAbstractItemModel::rowsRemoved, this, later);
        connect(kernos, &IModelListBase::modelDeleted, this, later);
    }
    if (BatchOperationManager* batches = events->batchOperationManager()) {
        connect(batches, &BatchOperationManager::editAnswerFinished, this, later);
        connect(batches, &BatchOperationManager::highlightsBatchUpdateFinished, this, later);
        connect(batches, &BatchOperationManager::sourcesBatchUpdateFinished, this,
                &SourceModel::refreshAsync);
    }
    connect(events, &ProjectEvents::highlightSaved, this, &SourceModel::onHighlightDeletedOrUpdated);
    connect(events, &ProjectEvents::highlightDeleted, this, &SourceModel::onHighlightDeletedOrUpdated);
}

QVariant SourceModel::data(const QModelIndex& index, int role) const {
    if (role != SourcePercentageCodedRole && role != GlobalPercentageCodedRole)
        return IModelList::data(index, role);
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    return row >= 0 && row < items().size() ? QVariant(percentageCoded(items().at(row)->sourceId()))
                                            : QVariant();
}

QHash<int, QByteArray> SourceModel::roleNames() const {
    QHash<int, QByteArray> names = IModelList::roleNames();
    names.insert(SourcePercentageCodedRole, "sourcePercentageCoded");
    names.insert(GlobalPercentageCodedRole, "globalPercentageCoded");
    return names;
}

int SourceModel::percentageCoded(int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    return percentage(m_codedLengths.value(sourceId), m_textLengths.value(sourceId));
}

void SourceModel::refreshAsync() {
    if (!project() || !project()->isOpened())
        return;
    if (QuestionAnswerMainModel* answers = project()->answerModel())
        connect(answers, &IModelListBase::initialDataSet, this, &SourceModel::updateAllCodingStatsAsync,
                Qt::UniqueConnection);
    QList<Source> list;
    if (takeAll(list))
        emit dataFetched(list);
}

void SourceModel::onDataFetched(QList<Source> data) {
    setData(data);
}

void SourceModel::onModelUpdated(int, const Source& source, const QVector<int>&) {
    emit modelUpdated(source);
}

void SourceModel::onFileClosed() {
    IModelList::onFileClosed();
    if (m_statsTimer)
        m_statsTimer->stop();
    m_count.forget();
    m_codedLengths.clear();
    m_textLengths.clear();
    m_totalTextLength = 0;
    m_globalPercentageCoded = 0;
    emit globalPercentageCodedChanged();
}

void SourceModel::takeTextLengths() {
    m_textLengths = project()->answerModel()->lengthsBySource();
    m_totalTextLength = 0;
    for (int length : qAsConst(m_textLengths))
        m_totalTextLength += length;
    m_codedLengths.clear();
}

QHash<int, int> SourceModel::codedLengthsFromJson(const QJsonArray& array) {
    QHash<int, int> lengths;
    for (const QJsonValue& element : array) {
        const QJsonObject object = element.toObject();
        lengths.insert(object.value(QLatin1String("id")).toInt(),
                       object.value(QLatin1String("coded_length")).toInt());
    }
    return lengths;
}

void SourceModel::updateAllCodingStatsAsync() {
    if (!hasTexts()) {
        emit globalPercentageCodedChanged();
        return;
    }
    m_count.send(dataHelper(), wire::sourceCodedLengthById(), this, [this](const QJsonObject& data) {
        qDebug() << data;
        applyCodedLengths(codedLengthsFromJson(data.value(wire::name::sourceCodedLengthById).toArray()));
    });
}

bool SourceModel::hasTexts() const {
    const QuestionAnswerMainModel* answers = project() ? project()->answerModel() : nullptr;
    return answers && !answers->isLoading() && answers->rowCount() > 0;
}

void SourceModel::applyCodedLengths(const QHash<int, int>& codedLengths) {
    const QMutexLocker lock(&m_mutex);
    if (!hasTexts())
        return;
    takeTextLengths();
    qint64 coded = 0;
    for (int row = items().size() - 1; row >= 0; --row) {
        const int sourceId = items().at(row)->sourceId();
        const int length = codedLengths.value(sourceId);
        qDebug() << "HIYA" << sourceId;
        m_codedLengths.insert(sourceId, length);
        coded += length;
    }
    m_globalPercentageCoded = percentage(coded, m_totalTextLength);
    emit globalPercentageCodedChanged();
    emitAllChanged({SourcePercentageCodedRole, GlobalPercentageCodedRole});
}

void SourceModel::delayedUpdateAllCodingStatsAsync() {
    if (!m_statsTimer) {
        m_statsTimer = new QTimer(this);
        m_statsTimer->setSingleShot(true);
        m_statsTimer->setInterval(modelDelays().codingStats);
        connect(m_statsTimer, &QTimer::timeout, this, &SourceModel::updateAllCodingStatsAsync,
                Qt::QueuedConnection);
    }
    m_statsTimer->stop();
    m_statsTimer->start();
}

void SourceModel::onHighlightDeletedOrUpdated(Highlight highlight) {
    if (project() && project()->isOpened() && contains(highlight.sourceId()))
        delayedUpdateAllCodingStatsAsync();
}
