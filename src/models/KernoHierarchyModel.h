#pragma once

#include "models/BaseProxyModelWithManualSort.h"
#include "models/KernoModel.h"

class DelayedSignalTrigger;

/// One kerno with its children and grandchildren, depth first.
class KernoHierarchyModel : public BaseProxyModelWithManualSortOrder<KernoModel, Kerno> {
    Q_OBJECT
    Q_PROPERTY(int kernoId READ kernoId WRITE setKernoId NOTIFY kernoIdChanged)
    Q_PROPERTY(QList<int> kernoIds READ kernoIds NOTIFY kernoIdsChanged)

public:
    enum Role {
        LevelRole = KernoModel::HighlightsCountWithChildrenRole + 1
    };  ///< 0 for the main kerno, 1, 2

    explicit KernoHierarchyModel(QObject* parent = nullptr);

    int kernoId() const { return m_kernoId; }
    void setKernoId(int kernoId);
    QList<int> kernoIds() const { return m_order.ids(); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void kernoIdChanged();
    void kernoIdsChanged();
    void kernoAdded(int kernoId);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    int idAt(int sourceRow) const override;

private:
    void recompute();
    void onDataChanged(const QVector<int>& roles);
    void onKernoUpdated(int kernoId);

    int m_kernoId = -1;
    ManualSortOrder m_order;
    QHash<int, int> m_levels;
    DelayedSignalTrigger* m_trigger;
};
