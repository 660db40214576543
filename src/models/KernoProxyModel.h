#pragma once

#include "models/BaseProxyModelWithManualSort.h"
#include "models/KernoModel.h"

/// The children of one kerno, sorted: what one level of the canvas or the tree shows.
class KernoProxyModel : public BaseProxyModelWithManualSortOrder<KernoModel, Kerno> {
    Q_OBJECT
    Q_PROPERTY(int parentKernoId READ parentKernoId WRITE setParentKernoId NOTIFY parentKernoIdChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int sortType READ sortType WRITE setSortType NOTIFY sortTypeChanged)

public:
    /// Bits: 1 descending, 2 manual, 4 title, 8 timestamp, 16 number of highlights.
    enum SortType {
        NoSort = 0,
        ManualSort = 2,
        ByTitle = 4,
        ByTitleAscending = 4,
        ByTitleDescending = 5,
        ByTimestamp = 8,
        ByTimestampAscending = 8,
        ByTimestampDescending = 9,
        ByNumberOfHighlights = 16,
        ByNumberOfHighlightsAscending = 16,
        ByNumberOfHighlightsDescending = 17
    };
    Q_ENUM(SortType)

    explicit KernoProxyModel(QObject* parent = nullptr);

    int parentKernoId() const { return m_parentKernoId; }
    void setParentKernoId(int id);
    int count() const { return rowCount(); }
    int sortType() const { return m_sortType; }
    void setSortType(int value);

    Q_INVOKABLE void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// The role that a sort type sorts by; 0 for none.
    static int sortRoleOf(int sortType);

signals:
    void parentKernoIdChanged();
    void countChanged();
    void sortTypeChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    int idAt(int sourceRow) const override;

private slots:
    void onSourceModelBatchUpdateBegin();
    void onSourceModelBatchUpdateFinished();

private:
    int m_parentKernoId = -1;
    int m_sortType = NoSort;
};
