#include "models/KernoModel.h"

#include "link/DataHelper.h"
#include "models/BatchOperationManager.h"
#include "models/ProjectEvents.h"
#include "models/Reparenting.h"
#include "wire/QueryText.h"

#include <QDebug>
#include <QMutexLocker>
#include <QSet>
#include <algorithm>

namespace {

constexpr double smallestScale = 0.7;
constexpr double scaleSpread = 0.8;

}  // namespace

KernoModel::KernoModel(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent), m_byParent([](const Kerno& kerno) { return kerno.parentKernoId(); }),
      m_quoteCounts(this) {
    addIndex(&m_byParent);
    if (helper) {
        connect(helper, &DataHelper::kernosJson, this, &KernoModel::setFromJson);
        connect(helper, &DataHelper::wsDisconnected, this, &KernoModel::forgetCountQuery);
        connect(helper, &DataHelper::wsConnected, this, &KernoModel::onHighlightsChanged);
    }
    ProjectEvents* events = project();
    if (!events)
        return;
    connect(events, &ProjectEvents::highlightSaved, this, &KernoModel::onHighlightsChanged);
    connect(events, &ProjectEvents::highlightDeleted, this, &KernoModel::onHighlightsChanged);
    connect(events, &ProjectEvents::batchHighlightSaved, this, &KernoModel::onHighlightsChanged);
    connect(events, &ProjectEvents::batchHighlightDeleted, this, &KernoModel::onHighlightsChanged);
    connect(events, &ProjectEvents::kernoUpdated, this, &KernoModel::onHighlightsChanged);
    if (BatchOperationManager* batches = events->batchOperationManager()) {
        connect(batches, &BatchOperationManager::highlightsBatchUpdateFinished, this,
                &KernoModel::onHighlightsChanged);
        connect(batches, &BatchOperationManager::editAnswerFinished, this, &KernoModel::onEditAnswerEnd);
        connect(batches, &BatchOperationManager::batchUpdateKernosFinished, this,
                &KernoModel::onBatchUpdateKernosFinished);
    }
}

QVariant KernoModel::data(const QModelIndex& index, int role) const {
    if (role <= static_cast<int>(KernoField::visible))
        return IModelList::data(index, role);
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    if (row < 0 || row >= items().size())
        return {};
    const Kerno& kerno = *items().at(row);
    switch (role) {
    case HighlightsCountRole:
        return m_quoteCounts.value(kerno.kernoId());
    case ScaleRole:
        if (m_maxQuoteCount < 2)
            return smallestScale;
        return static_cast<double>(highlightsCount(kerno.kernoId())) / m_maxQuoteCount * scaleSpread +
               smallestScale;
    case HasChildrenRole:
        return hasChildren(kerno);
    case HighlightsCountWithChildrenRole:
        return highlightsCountWithChildren(kerno.kernoId());
    default:
        return {};
    }
}

QHash<int, QByteArray> KernoModel::roleNames() const {
    static const QHash<int, QByteArray> names = [this] {
        QHash<int, QByteArray> all = IModelList::roleNames();
        all.insert(HighlightsCountRole, "highlightsCount");
        all.insert(ScaleRole, "scale");
        all.insert(HasChildrenRole, "hasChildren");
        all.insert(HighlightsCountWithChildrenRole, "highlightsCountWithChildren");
        return all;
    }();
    return names;
}

void KernoModel::applyGroupFilter(bool apply) {
    const QMutexLocker lock(&m_mutex);
    qDebug() << "qpplyingfilter" << m_groupFilterApplied << apply;
    if (apply == m_groupFilterApplied)
        return;
    for (Row* row : items())
        row->setGroupVisible(!apply);
    m_groupFilterApplied = apply;
    emitAllChanged();
}

void KernoModel::setGroupVisible(int kernoId, bool visible) {
    const QMutexLocker lock(&m_mutex);
    Row* row = rowOf(kernoId);
    if (!row)
        return;
    row->setGroupVisible(visible);
    emitAllChanged();
}

void KernoModel::filterByName(const QString& name) {
    const QMutexLocker lock(&m_mutex);
    for (Row* row : items())
        row->setNameVisible(name.isEmpty() || row->title().contains(name, Qt::CaseInsensitive));
    emitAllChanged();
}

bool KernoModel::hasChildren(const Kerno& kerno) const {
    const QMutexLocker lock(&m_mutex);
    const int id = kerno.kernoId();
    const auto& children = m_byParent.rows(id);
    return std::any_of(children.begin(), children.end(),
                       [id](const Row* row) { return row->kernoId() != id; });
}

bool KernoModel::hasGrandChildren(const Kerno& kerno) const {
    const QMutexLocker lock(&m_mutex);
    const int id = kerno.kernoId();
    const auto& children = m_byParent.rows(id);
    return std::any_of(children.begin(), children.end(), [this, id](const Row* child) {
        return child->kernoId() != id && !m_byParent.rows(child->kernoId()).isEmpty();
    });
}

bool KernoModel::canReparent(int kernoId, int newParentId) const {
    const QMutexLocker lock(&m_mutex);
    const Kerno kerno = record(kernoId);
    const Kerno newParent = record(newParentId);
    ReparentingFacts facts;
    facts.same = kernoId == newParentId;
    facts.bothExist = kerno.id() > 0 && newParent.id() > 0;
    facts.hasChildren = hasChildren(kerno);
    facts.hasGrandChildren = hasGrandChildren(kerno);
    facts.newParentHasParent = record(newParent.parentKernoId()).id() > 0;
    return mayReparent(facts);
}

QList<Kerno> KernoModel::childrenOf(int parentId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byParent.records(parentId);
}

QList<int> KernoModel::childIdsOf(int parentId) const {
    const QMutexLocker lock(&m_mutex);
    QList<int> ids;
    for (const Row* row : m_byParent.rows(parentId))
        ids.append(row->kernoId());
    return ids;
}

int KernoModel::highlightsCount(int kernoId) const {
    const QMutexLocker lock(&m_mutex);
    return m_quoteCounts.value(kernoId).toInt();
}

int KernoModel::highlightsCountWithChildren(int kernoId) const {
    const QMutexLocker lock(&m_mutex);
    QVector<int> ids{kernoId};
    QSet<int> seen{kernoId};
    int count = 0;
    for (int i = 0; i < ids.size(); ++i) {
        count += m_quoteCounts.value(ids.at(i)).toInt();
        for (const Row* row : m_byParent.rows(ids.at(i))) {
            // Two clients may have made a circle of parents.
            if (seen.contains(row->kernoId()))
                continue;
            seen.insert(row->kernoId());
            ids.append(row->kernoId());
        }
    }
    return count;
}

int KernoModel::parentIdAt(int row) const {
    const QMutexLocker lock(&m_mutex);
    return row >= 0 && row < items().size() ? items().at(row)->parentKernoId() : -1;
}

int KernoModel::kernoIdAt(int row) const {
    const QMutexLocker lock(&m_mutex);
    return row >= 0 && row < items().size() ? items().at(row)->kernoId() : -1;
}

// A first child, and the loss of the last one, change what the parent shows.
void KernoModel::announceChildrenOf(int kernoId) {
    const int row = indexOfKey(kernoId);
    if (row >= 0)
        emitRowsChanged(row, row, {HasChildrenRole});
}

void KernoModel::onModelAdded(int, const Kerno& kerno) {
    announceChildrenOf(kerno.parentKernoId());
}

void KernoModel::onModelRemoved(const Kerno& kerno, int) {
    announceChildrenOf(kerno.parentKernoId());
}

void KernoModel::onModelUpdated(int, const Kerno& kerno, const QVector<int>& changedRoles) {
    if (changedRoles.contains(static_cast<int>(KernoField::color)))
        emit kernoColorChanged(kerno);
    if (changedRoles.contains(static_cast<int>(KernoField::parentKernoId)))
        emitAllChanged({HasChildrenRole, HighlightsCountWithChildrenRole});
}

void KernoModel::afterRowsChanged() {
    onHighlightsChanged();
}

void KernoModel::onFileClosed() {
    IModelList::onFileClosed();
    forgetCountQuery();
    m_quoteCounts.clear();
    m_maxQuoteCount = 1;
    m_groupFilterApplied = false;
}

void KernoModel::onHighlightsChanged() {
    {
        const QMutexLocker lock(&m_mutex);
        if (items().isEmpty())
            return;
    }
    const BatchOperationManager* batches = project() ? project()->batchOperationManager() : nullptr;
    if (batches && !batches->isIdle())
        return;
    sendCountQuery();
}

void KernoModel::onEditAnswerEnd(int, int) {
    onHighlightsChanged();
}

void KernoModel::onBatchUpdateKernosFinished() {
    onHighlightsChanged();
    const QMutexLocker lock(&m_mutex);
    emitAllChanged({HasChildrenRole});
}

// One count is on its way at a time; a burst of changes costs two.
void KernoModel::sendCountQuery() {
    if (m_count.isOnItsWay()) {
        m_countAgain = true;
        return;
    }
    m_count.send(
        dataHelper(), m_quoteCounts.query(), this, [this](const QJsonObject& data) { takeCounts(data); },
        [this] { countAgain(); });
}

void KernoModel::takeCounts(const QJsonObject& data) {
    m_quoteCounts.replace(QuoteCounts::fromJson(data.value(wire::name::quoteCountsInKernos).toArray()));
    countAgain();
}

void KernoModel::countAgain() {
    if (!m_countAgain)
        return;
    m_countAgain = false;
    onHighlightsChanged();
}

void KernoModel::forgetCountQuery() {
    m_count.forget();
    m_countAgain = false;
}

void KernoModel::onKeyVariantValuesReplaced() {
    {
        const QMutexLocker lock(&m_mutex);
        m_maxQuoteCount = 0;
        for (const Row* row : items())
            m_maxQuoteCount = qMax(m_maxQuoteCount, highlightsCount(row->kernoId()));
    }
    emit highlightsChanged();
    const QMutexLocker lock(&m_mutex);
    emitAllChanged({HighlightsCountRole, ScaleRole, HighlightsCountWithChildrenRole});
}
