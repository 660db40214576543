#pragma once

#include <QAbstractListModel>
#include <QPointer>

/// Shows a large model in growing batches.
class FetchMoreListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(
        QAbstractItemModel* sourceModel READ sourceModel WRITE setSourceModel NOTIFY sourceModelChanged)

public:
    explicit FetchMoreListModel(QObject* parent = nullptr);

    QAbstractItemModel* sourceModel() const { return m_source; }
    /// `model` isn't owned.
    void setSourceModel(QAbstractItemModel* model);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // The screen says when it is ready for the next batch. What views ask of any model is not overridden: a
    // view would fetch batch after batch at once.
    using QAbstractListModel::canFetchMore;
    using QAbstractListModel::fetchMore;
    Q_INVOKABLE bool canFetchMore() const;
    Q_INVOKABLE void fetchMore();

signals:
    void sourceModelChanged();

private:
    int firstBatch() const;
    void resync();
    void showRows(int count);

    QPointer<QAbstractItemModel> m_source;
    int m_shownCount = 0;
    bool m_announcing = false;
};
