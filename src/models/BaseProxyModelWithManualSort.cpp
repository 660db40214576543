#include "models/BaseProxyModelWithManualSort.h"

BaseProxyModelWithManualSortBase::BaseProxyModelWithManualSortBase(QObject* parent)
    : BaseProxyModel(parent) {}

void BaseProxyModelWithManualSortBase::setManualSort(bool manualSort) {
    if (m_manualSort == manualSort)
        return;
    m_manualSort = manualSort;
    invalidate();
    emit manualSortChanged();
}

void BaseProxyModelWithManualSortBase::setManualSortOrder(const QList<int>& order) {
    if (m_order.ids() == order)
        return;
    m_order.set(order);
    if (m_manualSort)
        invalidate();
    emit manualSortOrderChanged();
}
