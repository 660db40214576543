#pragma once

#include "link/DataHelper.h"
#include "models/BatchOperationManager.h"
#include "models/DelayedSignalTrigger.h"
#include "models/ModelDelays.h"
#include "models/PassageModel.h"
#include "models/PassageRange.h"
#include "models/ProjectEvents.h"
#include "records/Passage.h"

#include <QCoreApplication>
#include <QDebug>
#include <QMutexLocker>
#include <QTimer>
#include <algorithm>

// The bodies of PassageModel. Only HighlightsModel.cpp and MemosModel.cpp include this file.

template <typename P, typename F>
PassageModel<P, F>::PassageModel(TextGeometry* textEdit, DataHelper* helper, QObject* parent)
    : IModelList<P, int, F>(helper, parent), m_textEdit(textEdit),
      m_item(textEdit ? textEdit->item() : nullptr),
      m_reloadTrigger(new DelayedSignalTrigger(modelDelays().reload, this)),
      m_readOnly(textEdit && textEdit->isReadOnlyText()) {}

template <typename P, typename F>
template <typename Model>
void PassageModel<P, F>::connectShared(Model* model) {
    QObject::connect(model, &Model::dataFetched, model, &Model::doReloadData);
    QObject::connect(m_reloadTrigger, &QTimer::timeout, model, &Model::reload);
    if (m_item) {
        QObject::connect(m_item, SIGNAL(contentSizeChanged()), model, SLOT(delayedUpdatePositions()));
        QObject::connect(m_item, SIGNAL(readOnlyChanged(bool)), model, SLOT(updateReadOnly(bool)));
    }
    const BatchOperationManager* batches =
        this->project() ? this->project()->batchOperationManager() : nullptr;
    if (!batches)
        return;
    QObject::connect(batches, &BatchOperationManager::editAnswerFinished, model, &Model::maybeReloadData);
    QObject::connect(batches, &BatchOperationManager::highlightsBatchUpdateFinished, model,
                     &Model::maybeReloadData);
    QObject::connect(batches, &BatchOperationManager::batchUpdateKernosFinished, model, &Model::reload);
}

template <typename P, typename F> void PassageModel<P, F>::setSourceId(int sourceId) {
    if (m_sourceId == sourceId)
        return;
    m_sourceId = sourceId;
    m_rowsAreCurrent = false;
    emitSourceIdChanged();
    fetchRows();
}

template <typename P, typename F> void PassageModel<P, F>::setQuestionId(int questionId) {
    if (m_questionId == questionId)
        return;
    m_questionId = questionId;
    m_rowsAreCurrent = false;
    emitQuestionIdChanged();
    fetchRows();
}

template <typename P, typename F>
void PassageModel<P, F>::setSource(int sourceId, int questionId, int offset, int length) {
    const bool otherSource = sourceId != m_sourceId;
    const bool otherQuestion = questionId != m_questionId;
    if (otherSource || otherQuestion || offset != m_sourceOffset || length != m_sourceLength)
        m_rowsAreCurrent = false;
    m_sourceId = sourceId;
    m_questionId = questionId;
    m_sourceOffset = offset;
    m_sourceLength = length;
    if (otherSource)
        emitSourceIdChanged();
    if (otherQuestion)
        emitQuestionIdChanged();
    fetchRows();
}

template <typename P, typename F> bool PassageModel<P, F>::isIdleFor(int sourceId, int questionId) const {
    const ProjectEvents* events = this->project();
    const BatchOperationManager* batches = events ? events->batchOperationManager() : nullptr;
    return !batches || batches->isIdleFor(sourceId, questionId);
}

template <typename P, typename F> void PassageModel<P, F>::fetchRows() {
    if (!m_readOnly || !isIdleFor(m_sourceId, m_questionId))
        return;
    qDebug() << shortName() << "reload called" << m_sourceId << m_questionId;
    m_read.forget();
    if (m_sourceId < 1 || m_questionId < 1)
        this->resetToEmpty();
    else
        fetch();
}

template <typename P, typename F> void PassageModel<P, F>::fetch() {
    m_read.send(
        this->dataHelper(), windowQuery(), this, [this](const QJsonObject& data) { takeReply(data); },
        [this] { readFailed(); });
}

template <typename P, typename F> void PassageModel<P, F>::takeReply(const QJsonObject& data) {
    // The service sends whole records with their stored positions.
    QList<P> list;
    const QString key = wire::operationName(P::record(), wire::Operation::QueryList);
    const QList<P> stored = DataHelper::records<P>(data, DataHelper::highlightKeys(key));
    for (const P& passage : stored) {
        const P clipped(passage, m_sourceOffset, m_sourceLength);
        if (clipped.isValid())
            list.append(clipped);
    }
    std::stable_sort(list.begin(), list.end(), passage::lessThan<P>);
    emitDataFetched(list, m_sourceId, m_questionId);
}

// Rows of the same window stay; those of another text are none of this one's. The text item waits in both
// cases.
template <typename P, typename F> void PassageModel<P, F>::readFailed() {
    if (m_rowsAreCurrent)
        emitModelReady();
    else
        emitDataFetched({}, m_sourceId, m_questionId);
}

template <typename P, typename F> void PassageModel<P, F>::onFileClosed() {
    IModelList<P, int, F>::onFileClosed();
    m_read.forget();
    m_rowsAreCurrent = false;
}

template <typename P, typename F>
void PassageModel<P, F>::takeFetched(QList<P> list, int sourceId, int questionId) {
    static bool running = false;
    if (running || !isCurrent(sourceId, questionId))
        return;
    running = true;
    if (!textEdit()) {
        this->resetToEmpty();
    } else {
        layOut(list);
        this->setData(list);
        m_rowsAreCurrent = true;
        announceLayout();
        emitModelReady();
    }
    running = false;
}

template <typename P, typename F>
void PassageModel<P, F>::takeList(const QList<P>& list, int sourceId, int questionId) {
    if (m_readOnly)
        return;
    const bool otherSource = sourceId != m_sourceId;
    const bool otherQuestion = questionId != m_questionId;
    m_sourceId = sourceId;
    m_questionId = questionId;
    if (otherSource)
        emitSourceIdChanged();
    if (otherQuestion)
        emitQuestionIdChanged();
    if (otherSource || otherQuestion)
        fetchRows();
    takeFetched(list, sourceId, questionId);
}

template <typename P, typename F> void PassageModel<P, F>::passageSaved(const P& passage) {
    if (!m_readOnly || !isIdleFor(passage.sourceId(), passage.questionId()))
        return;
    if (!isCurrent(passage.sourceId(), passage.questionId()))
        return;
    const QMutexLocker lock(&this->m_mutex);
    qDebug() << "onHighlightSaved";
    // A record that is saved again leaves its old place first.
    this->removeByKey(passage.id());
    const P clipped(passage, m_sourceOffset, m_sourceLength);
    if (!clipped.isValid())
        return;
    const int row = passages::insertionRow(this->items(), clipped, passage::lessThan<P>);
    const QPair<int, int> range = passages::affectedRange(this->items(), row, clipped);
    const int count = this->items().size();
    // Views are told of one row more than arrives: the bars beside a text have always been told so and depend
    // on it.
    this->beginInsertRows({}, count, count + 1);
    this->appendRow(clipped);
    this->endInsertRows();
    if (row != count && this->beginMoveRows({}, count, count, {}, row)) {
        this->moveRow(count, row);
        this->endMoveRows();
    }
    layOutRows(true, row);
    emitAdded(clipped, range);
}

template <typename P, typename F> void PassageModel<P, F>::passageDeleted(const P& passage) {
    if (!m_readOnly || !isIdleFor(passage.sourceId(), passage.questionId()))
        return;
    if (passage.isValid())
        this->removeByKey(passage.id());
}

template <typename P, typename F> void PassageModel<P, F>::onModelRemoved(const P& passage, int row) {
    if (!m_readOnly || !isIdleFor(m_sourceId, m_questionId))
        return;
    qDebug() << "onModelRemoved";
    const QPair<int, int> range = passages::affectedRange(this->items(), row, passage);
    layOutRows(true, noRow);
    emitRemoved(passage, range);
}

template <typename P, typename F>
void PassageModel<P, F>::batchChanged(const QSet<int>& sources, const QSet<int>& questions) {
    if (sources.contains(m_sourceId) && questions.contains(m_questionId))
        fetchRows();
}

template <typename P, typename F> void PassageModel<P, F>::bulkChangeFinished(int sourceId, int questionId) {
    if (isCurrent(sourceId, questionId) && isIdleFor(sourceId, questionId))
        fetchRows();
}

template <typename P, typename F> void PassageModel<P, F>::layOutRows(bool notifyChanges, int changedRow) {
    TextGeometry* text = textEdit();
    if (!text || !text->isComplete() || !isIdleFor(m_sourceId, m_questionId))
        return;
    qDebug() << "updating positions";
    const QMutexLocker lock(&this->m_mutex);
    QList<P> shown = this->snapshot();  // copies share their state with the rows
    layOut(shown, changedRow);
    announceLayout();
    if (notifyChanges) {
        qDebug("emit dataChanged(index(0, 0), index(%i, 0), changedRoles);", shown.size() - 1);
        this->emitAllChanged(positionRoles());
    }
}

template <typename P, typename F> void PassageModel<P, F>::restartPositionTimer(QPointer<QTimer>& shared) {
    qDebug() << "delayed update position";
    if (!shared) {
        shared = new QTimer(QCoreApplication::instance());
        shared->setSingleShot(true);
        shared->setInterval(modelDelays().positions);
        QObject::connect(shared, &QTimer::timeout, this, [this] { layOutRows(true); });
    }
    shared->start();
}
