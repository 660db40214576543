#pragma once

#include <QIdentityProxyModel>

/// Lets a model tester watch a model that answers every role with its value, also those where a view expects
/// a size: only the model's own roles pass.
class OwnRolesOnly : public QIdentityProxyModel {
public:
    explicit OwnRolesOnly(QAbstractItemModel* model) { setSourceModel(model); }
    QVariant data(const QModelIndex& index, int role) const override {
        return role > Qt::UserRole ? QIdentityProxyModel::data(index, role) : QVariant();
    }
};
