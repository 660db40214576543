#pragma once

#include "models/BaseProxyModelWithManualSort.h"
#include "models/KernoModel.h"

class DelayedSignalTrigger;

/// All kernos, with the number of overlaps of codings that each has with one main kerno, most first.
class KernoOverlapModel : public BaseProxyModelWithManualSortOrder<KernoModel, Kerno> {
    Q_OBJECT
    Q_PROPERTY(int kernoId READ kernoId WRITE setKernoId NOTIFY kernoIdChanged)

public:
    enum Role {
        OverlapsRole =
            KernoModel::HighlightsCountWithChildrenRole + 1,  ///< number of overlaps with the main kerno
        OverlapFactorRole                                     ///< that number by the largest one, 0 to 1
    };

    explicit KernoOverlapModel(QObject* parent = nullptr);

    int kernoId() const { return m_kernoId; }
    void setKernoId(int kernoId);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Degrees between neighbours on the ring of one overlap count; 30 with fewer than two kernos on it.
    Q_INVOKABLE int getAngleForOverlap(int overlap) const;

signals:
    void kernoIdChanged();
    void newAsyncResultComputed();

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    int idAt(int sourceRow) const override;

private:
    /// One blocking read for each kerno.
    void recompute();

    int m_kernoId = -1;
    QHash<int, int> m_overlaps;
    int m_maxOverlap = 0;
    DelayedSignalTrigger* m_trigger;
    bool m_computing = false;
};
