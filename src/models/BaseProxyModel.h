#pragma once

#include <QSortFilterProxyModel>
#include <QVariant>

/// A sorted and filtered view that QML reads row by row.
class BaseProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    explicit BaseProxyModel(QObject* parent = nullptr);

    /// All roles of a row by name; empty for a row out of range.
    Q_INVOKABLE QVariantMap get(int index) const;
    /// One role of a row; invalid for an unknown name or a row out of range.
    Q_INVOKABLE QVariant get(int index, const QByteArray& roleName) const;
    Q_INVOKABLE QVariantList getAllItems() const;
};

namespace itemmodel {

/// Every role of a row by name; empty for a row out of range.
QVariantMap rowMap(const QAbstractItemModel& model, int row);
QVariantList allRows(const QAbstractItemModel& model);
/// One role of a row by its name; invalid for an unknown name or a row out of range.
QVariant value(const QAbstractItemModel& model, int row, const QByteArray& roleName);

}  // namespace itemmodel
