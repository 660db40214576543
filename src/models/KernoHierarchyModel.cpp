#include "models/KernoHierarchyModel.h"

#include "models/DelayedSignalTrigger.h"
#include "models/KernoLevels.h"
#include "models/ModelDelays.h"
#include "models/ProjectEvents.h"

KernoHierarchyModel::KernoHierarchyModel(QObject* parent)
    : BaseProxyModelWithManualSortOrder(parent),
      m_trigger(new DelayedSignalTrigger(modelDelays().hierarchy, this)) {
    connect(m_trigger, &QTimer::timeout, this, &KernoHierarchyModel::recompute);
    connect(this, &QAbstractItemModel::rowsInserted, m_trigger, &DelayedSignalTrigger::restart);
    connect(this, &QAbstractItemModel::rowsRemoved, m_trigger, &DelayedSignalTrigger::restart);
    connect(this, &QAbstractItemModel::modelReset, m_trigger, &DelayedSignalTrigger::restart);
    connect(
        this, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex&, const QModelIndex&, const QVector<int>& roles) { onDataChanged(roles); });
    if (ProjectEvents* project = ProjectEvents::current()) {
        setRecords(project->kernoModel());
        connect(project, &ProjectEvents::kernoUpdated, this, &KernoHierarchyModel::onKernoUpdated);
    }
    sort(0, Qt::AscendingOrder);
}

void KernoHierarchyModel::setKernoId(int kernoId) {
    if (m_kernoId == kernoId)
        return;
    m_kernoId = kernoId;
    recompute();
    emit kernoIdChanged();
}

QVariant KernoHierarchyModel::data(const QModelIndex& index, int role) const {
    if (role != LevelRole)
        return BaseProxyModelWithManualSortOrder::data(index, role);
    const QModelIndex source = mapToSource(index);
    return source.isValid() ? QVariant(m_levels.value(idAt(source.row()), 0)) : QVariant();
}

QHash<int, QByteArray> KernoHierarchyModel::roleNames() const {
    QHash<int, QByteArray> names = BaseProxyModelWithManualSortOrder::roleNames();
    names.insert(LevelRole, "level");
    return names;
}

bool KernoHierarchyModel::filterAcceptsRow(int sourceRow, const QModelIndex&) const {
    return m_order.place(idAt(sourceRow)) >= 0;
}

bool KernoHierarchyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    return m_order.lessThan(idAt(left.row()), idAt(right.row()));
}

int KernoHierarchyModel::idAt(int sourceRow) const {
    return records() ? records()->kernoIdAt(sourceRow) : Kerno().id();
}

void KernoHierarchyModel::recompute() {
    if (!records() || !records()->contains(m_kernoId)) {
        if (m_order.ids().isEmpty())
            return;
        m_levels.clear();
        m_order.set({});
        invalidateFilter();
        emit kernoIdsChanged();
        return;
    }
    const KernoLevels found =
        kernoLevels(m_kernoId, [this](int parentId) { return records()->childIdsOf(parentId); });
    const bool differs = found.ids != m_order.ids();
    m_order.set(found.ids);
    m_levels = found.levels;
    if (!differs)
        return;
    invalidateFilter();
    // Rows that stay may have changed places, which the filter doesn't notice.
    invalidate();
    emit kernoIdsChanged();
}

void KernoHierarchyModel::onDataChanged(const QVector<int>& roles) {
    if (roles.contains(KernoModel::HasChildrenRole))
        m_trigger->restart();
}

void KernoHierarchyModel::onKernoUpdated(int kernoId) {
    if (!records() || m_order.place(kernoId) >= 0)
        return;
    if (m_order.place(records()->record(kernoId).parentKernoId()) < 0)
        return;
    recompute();
    emit kernoAdded(kernoId);
}
