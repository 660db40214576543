#include "models/KernoProxyModel.h"

#include "models/BatchOperationManager.h"
#include "models/ProjectEvents.h"

namespace {

enum SortBit { Descending = 1, Title = 4, Timestamp = 8, NumberOfHighlights = 16 };

}

KernoProxyModel::KernoProxyModel(QObject* parent) : BaseProxyModelWithManualSortOrder(parent) {
    connect(this, &QAbstractItemModel::rowsInserted, this, &KernoProxyModel::countChanged);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &KernoProxyModel::countChanged);
    connect(this, &QAbstractItemModel::modelReset, this, &KernoProxyModel::countChanged);
    setSortRole(sortRoleOf(m_sortType));
    if (ProjectEvents* project = ProjectEvents::current()) {
        setRecords(project->kernoModel());
        if (BatchOperationManager* batches = project->batchOperationManager()) {
            connect(batches, &BatchOperationManager::aboutToBatchUpdateKernos, this,
                    &KernoProxyModel::onSourceModelBatchUpdateBegin);
            connect(batches, &BatchOperationManager::batchUpdateKernosFinished, this,
                    &KernoProxyModel::onSourceModelBatchUpdateFinished);
        }
    }
    // Without a sort column a manual order would have no effect.
    QSortFilterProxyModel::sort(0, Qt::AscendingOrder);
}

void KernoProxyModel::setParentKernoId(int id) {
    if (m_parentKernoId == id)
        return;
    m_parentKernoId = id;
    invalidateFilter();
    emit parentKernoIdChanged();
}

int KernoProxyModel::sortRoleOf(int sortType) {
    if (sortType & Title)
        return static_cast<int>(KernoField::title);
    if (sortType & Timestamp)
        return static_cast<int>(KernoField::timestamp);
    if (sortType & NumberOfHighlights)
        return KernoModel::HighlightsCountRole;
    return 0;
}

void KernoProxyModel::setSortType(int value) {
    if (m_sortType == value)
        return;
    m_sortType = value;
    emit sortTypeChanged();
    setSortRole(sortRoleOf(value));
    sort(0, value & Descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void KernoProxyModel::sort(int column, Qt::SortOrder order) {
    BaseProxyModelWithManualSortOrder::sort(column, order);
}

bool KernoProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex&) const {
    return records() && records()->parentIdAt(sourceRow) == m_parentKernoId;
}

bool KernoProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    // Without a role all rows are equal, and one that comes back through the filter would land anywhere.
    if (!manualSort() && sortRole() == 0)
        return left.row() < right.row();
    return BaseProxyModelWithManualSortOrder::lessThan(left, right);
}

int KernoProxyModel::idAt(int sourceRow) const {
    return records() ? records()->kernoIdAt(sourceRow) : Kerno().id();
}

// A bulk change needs no help: the source announces its rows as they change.
void KernoProxyModel::onSourceModelBatchUpdateBegin() {}
void KernoProxyModel::onSourceModelBatchUpdateFinished() {}
