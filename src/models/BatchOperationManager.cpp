#include "models/BatchOperationManager.h"

#include <QMutexLocker>

BatchOperationManager::BatchOperationManager(QObject* parent) : QObject(parent) {}

void BatchOperationManager::start(QList<Pair>& running, const Pair& pair) {
    const QMutexLocker lock(&m_mutex);
    running.append(pair);
}

bool BatchOperationManager::finish(QList<Pair>& running, const Pair& pair) {
    const QMutexLocker lock(&m_mutex);
    return running.removeOne(pair);
}

void BatchOperationManager::start(bool& flag) {
    const QMutexLocker lock(&m_mutex);
    flag = true;
}

bool BatchOperationManager::finish(bool& flag) {
    const QMutexLocker lock(&m_mutex);
    const bool wasSet = flag;
    flag = false;
    return wasSet;
}

void BatchOperationManager::startAnswerEdit(int sourceId, int questionId) {
    start(m_answerEdits, {sourceId, questionId});
}

void BatchOperationManager::finishAnswerEdit(int sourceId, int questionId) {
    if (finish(m_answerEdits, {sourceId, questionId}))
        emit editAnswerFinished(sourceId, questionId);
}

void BatchOperationManager::startHighlightBatch(int sourceId, int questionId) {
    start(m_highlightBatches, {sourceId, questionId});
}

void BatchOperationManager::finishHighlightBatch(int sourceId, int questionId) {
    if (finish(m_highlightBatches, {sourceId, questionId}))
        emit highlightsBatchUpdateFinished(sourceId, questionId);
}

void BatchOperationManager::startKernoBatch() {
    const bool wasRunning = [this] {
        const QMutexLocker lock(&m_mutex);
        return m_kernoBatch;
    }();
    start(m_kernoBatch);
    if (!wasRunning)
        emit aboutToBatchUpdateKernos();
}

void BatchOperationManager::finishKernoBatch() {
    finish(m_kernoBatch);
    emit batchUpdateKernosFinished();
}

void BatchOperationManager::startMetadataBatch() {
    start(m_metadataBatch);
}

void BatchOperationManager::finishMetadataBatch() {
    if (finish(m_metadataBatch))
        emit metadataBatchUpdateFinished();
}

void BatchOperationManager::startSourcesBatch() {
    start(m_sourcesBatch);
}

void BatchOperationManager::finishSourcesBatch() {
    if (finish(m_sourcesBatch))
        emit sourcesBatchUpdateFinished();
}

bool BatchOperationManager::isMetadataBatch() const {
    const QMutexLocker lock(&m_mutex);
    return m_metadataBatch;
}

bool BatchOperationManager::isSourcesBatch() const {
    const QMutexLocker lock(&m_mutex);
    return m_sourcesBatch;
}

bool BatchOperationManager::isIdleFor(int sourceId, int questionId) const {
    const QMutexLocker lock(&m_mutex);
    const Pair pair(sourceId, questionId);
    return !m_kernoBatch && !m_highlightBatches.contains(pair) && !m_answerEdits.contains(pair);
}

bool BatchOperationManager::isIdle() const {
    const QMutexLocker lock(&m_mutex);
    return !m_kernoBatch && m_highlightBatches.isEmpty() && m_answerEdits.isEmpty();
}
