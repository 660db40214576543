#include "models/BaseProxyModel.h"

namespace itemmodel {

QVariantMap rowMap(const QAbstractItemModel& model, int row) {
    QVariantMap map;
    if (row < 0 || row >= model.rowCount())
        return map;
    const QModelIndex index = model.index(row, 0);
    const QHash<int, QByteArray> roles = model.roleNames();
    for (auto role = roles.cbegin(); role != roles.cend(); ++role)
        map.insert(QString::fromUtf8(role.value()), model.data(index, role.key()));
    return map;
}

QVariantList allRows(const QAbstractItemModel& model) {
    QVariantList rows;
    const int count = model.rowCount();
    rows.reserve(count);
    for (int row = 0; row < count; ++row)
        rows.append(rowMap(model, row));
    return rows;
}

QVariant value(const QAbstractItemModel& model, int row, const QByteArray& roleName) {
    const QHash<int, QByteArray> roles = model.roleNames();
    for (auto role = roles.cbegin(); role != roles.cend(); ++role) {
        if (role.value() == roleName)
            return model.data(model.index(row, 0), role.key());
    }
    return {};
}

}  // namespace itemmodel

BaseProxyModel::BaseProxyModel(QObject* parent) : QSortFilterProxyModel(parent) {}

QVariantMap BaseProxyModel::get(int index) const {
    return itemmodel::rowMap(*this, index);
}

QVariant BaseProxyModel::get(int index, const QByteArray& roleName) const {
    return itemmodel::value(*this, index, roleName);
}

QVariantList BaseProxyModel::getAllItems() const {
    return itemmodel::allRows(*this);
}
