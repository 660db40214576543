#include "models/VariantListModel.h"

VariantListModel::VariantListModel(QObject* parent) : QAbstractListModel(parent) {}

int VariantListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_items.size();
}

QVariant VariantListModel::data(const QModelIndex& index, int) const {
    return get(index.row());
}

QHash<int, QByteArray> VariantListModel::roleNames() const {
    return {{ModelDataRole, "modelData"}};
}

void VariantListModel::setItems(const QVariantList& items) {
    const int before = m_items.size();
    const int after = items.size();
    if (m_simplifiedItemManagement || before == 0 || after == 0) {
        beginResetModel();
        m_items = items;
        endResetModel();
    } else if (after == before) {
        m_items = items;
        emit dataChanged(index(0), index(after - 1));
    } else if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_items = items;
        endInsertRows();
        emit dataChanged(index(0), index(before - 1));
    } else {
        beginRemoveRows({}, after, before - 1);
        m_items = items;
        endRemoveRows();
        emit dataChanged(index(0), index(after - 1));
    }
    emitItemsChanged();
}

void VariantListModel::setItemIdField(const QString& field) {
    if (m_itemIdField == field)
        return;
    m_itemIdField = field;
    emit itemIdFieldChanged();
}

void VariantListModel::setDuplicatesAllowed(bool allowed) {
    if (m_duplicatesAllowed == allowed)
        return;
    m_duplicatesAllowed = allowed;
    emit duplicatesAllowedChanged();
}

void VariantListModel::setDummy(bool dummy) {
    if (m_dummy == dummy)
        return;
    m_dummy = dummy;
    emit dummyChanged();
}

void VariantListModel::setSimplifiedItemManagement(bool simplified) {
    if (m_simplifiedItemManagement == simplified)
        return;
    m_simplifiedItemManagement = simplified;
    emit simplifiedItemManagementChanged();
}

void VariantListModel::append(const QVariant& item) {
    insertItems(m_items.size(), {item});
}

void VariantListModel::append(const QVariantList& items) {
    insertItems(m_items.size(), items);
}

void VariantListModel::insert(int i, const QVariant& item) {
    insertItems(i, QVariantList{item});
}

void VariantListModel::insert(int i, const QVariantList& items) {
    insertItems(i, items);
}

void VariantListModel::insertItems(int i, const QVariantList& items) {
    if (items.isEmpty())
        return;
    const int at = qBound(0, i, m_items.size());
    beginInsertRows({}, at, at + items.size() - 1);
    for (int k = 0; k < items.size(); ++k)
        m_items.insert(at + k, items.at(k));
    endInsertRows();
    emitItemsChanged();
}

void VariantListModel::replace(int i, const QVariant& item) {
    if (i < 0 || i >= m_items.size())
        return;
    m_items.replace(i, item);
    emit dataChanged(index(i), index(i));
    emitItemsChanged();
}

void VariantListModel::move(int from, int to) {
    const int size = m_items.size();
    if (from < 0 || from >= size || to < 0 || to >= size)
        return;
    if (!beginMoveRows({}, from, from, {}, to > from ? to + 1 : to))
        return;
    m_items.move(from, to);
    endMoveRows();
    emitItemsChanged();
}

void VariantListModel::removeAt(int i) {
    removeAt(i, 1);
}

void VariantListModel::removeAt(int i, int count) {
    if (count < 1 || i + count <= 0 || i >= m_items.size())
        return;
    beginRemoveRows({}, i, i + count - 1);
    for (int k = i + count - 1; k >= i; --k) {
        if (k >= 0 && k < m_items.size())
            m_items.removeAt(k);
    }
    endRemoveRows();
    emitItemsChanged();
}

QVariant VariantListModel::takeAt(int i) {
    if (i < 0 || i >= m_items.size())
        return {};
    beginRemoveRows({}, i, i);
    const QVariant item = m_items.takeAt(i);
    endRemoveRows();
    emitItemsChanged();
    return item;
}

void VariantListModel::clear() {
    beginResetModel();
    m_items.clear();
    endResetModel();
    emitItemsChanged();
}

bool VariantListModel::remove(const QVariant& item) {
    const int i = m_items.indexOf(item);
    if (i < 0)
        return false;
    removeAt(i);
    return true;
}

bool VariantListModel::contains(const QVariant& item) const {
    return m_items.contains(item);
}

int VariantListModel::indexOf(const QVariant& item, int from) const {
    return m_items.indexOf(item, from);
}

int VariantListModel::lastIndexOf(const QVariant& item, int from) const {
    return m_items.lastIndexOf(item, from);
}

QVariant VariantListModel::get(int i) const {
    return m_items.value(i);
}

void VariantListModel::notifyItemChanged(const QVariant& item) {
    const int i = m_items.indexOf(item);
    if (i >= 0)
        emit dataChanged(index(i), index(i));
}

void VariantListModel::emitItemsChanged() {
    emit countChanged();
    emit itemsChanged();
}
