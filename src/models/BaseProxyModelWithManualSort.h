#pragma once

#include "models/BaseProxyModel.h"
#include "models/ManualSort.h"

/// A view whose rows can be put in an order made by hand. The order isn't stored in the project; the owner
/// keeps it.
class BaseProxyModelWithManualSortBase : public BaseProxyModel {
    Q_OBJECT
    Q_PROPERTY(bool manualSort READ manualSort WRITE setManualSort NOTIFY manualSortChanged)
    Q_PROPERTY(QList<int> manualSortOrder READ manualSortOrder WRITE setManualSortOrder NOTIFY
                   manualSortOrderChanged)

public:
    explicit BaseProxyModelWithManualSortBase(QObject* parent = nullptr);

    bool manualSort() const { return m_manualSort; }
    void setManualSort(bool manualSort);
    QList<int> manualSortOrder() const { return m_order.ids(); }
    void setManualSortOrder(const QList<int>& order);

    /// The ids of all rows, in the order shown.
    Q_INVOKABLE virtual QList<int> currentSortOrder() const = 0;

signals:
    void manualSortChanged();
    void manualSortOrderChanged();

protected:
    const ManualSortOrder& order() const { return m_order; }

private:
    bool m_manualSort = false;
    ManualSortOrder m_order;
};

/// The step that knows the source model and its record.
template <typename Model, typename T>
class BaseProxyModelWithManualSortOrder : public BaseProxyModelWithManualSortBase {
public:
    using BaseProxyModelWithManualSortBase::BaseProxyModelWithManualSortBase;

    /// The source model; null while there is none.
    Model* records() const { return m_records; }

    void setRecords(Model* model) {
        m_records = model;
        setSourceModel(model);
    }

    QList<int> currentSortOrder() const override {
        QList<int> ids;
        const int rows = rowCount();
        ids.reserve(rows);
        for (int row = 0; row < rows; ++row) {
            const QModelIndex source = mapToSource(index(row, 0));
            if (source.isValid())
                ids.append(idAt(source.row()));
        }
        return ids;
    }

protected:
    virtual int idAt(int sourceRow) const { return m_records ? m_records->at(sourceRow).id() : T().id(); }

    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
        if (!manualSort())
            return BaseProxyModelWithManualSortBase::lessThan(left, right);
        const int leftPlace = order().place(idAt(left.row()));
        const int rightPlace = order().place(idAt(right.row()));
        // Rows without a place keep the order of the source.
        return leftPlace != rightPlace ? leftPlace < rightPlace : left.row() < right.row();
    }

private:
    QPointer<Model> m_records;
};
