#pragma once

#include "models/IModelList.h"
#include "models/PendingRead.h"
#include "models/QuoteCounts.h"
#include "records/Kerno.h"

extern template class IModelList<Kerno, int, KernoField>;

/// All kernos of the project, with their counts of codings.
class KernoModel : public IModelList<Kerno, int, KernoField>, public KeyVariantValueModelListCallback<int> {
    Q_OBJECT

public:
    enum Role {
        HighlightsCountRole = static_cast<int>(KernoField::visible) + 1,  ///< number of codings
        ScaleRole,                                                        ///< size of the bubble, 0.7 to 1.5
        HasChildrenRole,
        HighlightsCountWithChildrenRole  ///< its codings and those of all kernos below it
    };

    explicit KernoModel(DataHelper* helper, QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// With the filter on, the kernos of the groups made visible since are shown; switching it hides or shows
    /// all.
    void applyGroupFilter(bool apply);
    void setGroupVisible(int kernoId, bool visible);
    /// Shows the kernos whose title contains `name`, ignoring case; all for an empty name.
    void filterByName(const QString& name);

    bool hasChildren(const Kerno& kerno) const;
    bool hasChildren(const QModelIndex& parent) const override { return !parent.isValid() && rowCount() > 0; }
    bool hasGrandChildren(const Kerno& kerno) const;

    /// Whether the kerno may move below another one without making the tree too deep.
    bool canReparent(int kernoId, int newParentId) const;

    /// In row order.
    QList<Kerno> childrenOf(int parentId) const;
    QList<int> childIdsOf(int parentId) const;

    /// Number of codings as of the last count.
    int highlightsCount(int kernoId) const;
    /// The same with all kernos below it.
    int highlightsCountWithChildren(int kernoId) const;
    int maxQuoteCount() const { return m_maxQuoteCount; }
    QuoteCounts* quoteCounts() { return &m_quoteCounts; }
    void onKeyVariantValuesReplaced() override;

    /// The parent of a row's kerno, without a copy of the record; -1 out of range.
    int parentIdAt(int row) const;
    /// The id of a row's kerno, without a copy of the record; -1 out of range.
    int kernoIdAt(int row) const;

signals:
    void kernoColorChanged(Kerno kerno);
    void highlightsChanged();

protected:
    /// The project hands over the kernos itself while it opens.
    bool shouldRefreshOnOpen() const override { return false; }
    void onModelAdded(int row, const Kerno& kerno) override;
    void onModelRemoved(const Kerno& kerno, int row) override;
    void onModelUpdated(int row, const Kerno& kerno, const QVector<int>& changedRoles) override;
    void afterRowsChanged() override;
    void onFileClosed() override;

private slots:
    void onHighlightsChanged();
    void onEditAnswerEnd(int sourceId, int questionId);

private:
    void sendCountQuery();
    void takeCounts(const QJsonObject& data);
    void countAgain();
    void forgetCountQuery();
    void onBatchUpdateKernosFinished();
    void announceChildrenOf(int kernoId);

    RowIndex<Kerno, int> m_byParent;
    QuoteCounts m_quoteCounts;
    int m_maxQuoteCount = 1;
    bool m_groupFilterApplied = false;
    PendingRead m_count;
    bool m_countAgain = false;  ///< codings changed while a count was on its way
};
