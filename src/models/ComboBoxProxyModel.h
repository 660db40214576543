#pragma once

#include <QAbstractProxyModel>

class DelayedSignalTrigger;

/// Puts a row that stands for no choice in front of a model, for combo boxes. A burst of changes of the
/// source makes one reset.
class ComboBoxProxyModel : public QAbstractProxyModel {
    Q_OBJECT
    Q_PROPERTY(
        QString dummyEntryText READ dummyEntryText WRITE setDummyEntryText NOTIFY dummyEntryTextChanged)

public:
    explicit ComboBoxProxyModel(QObject* parent = nullptr);

    QString dummyEntryText() const { return m_dummyEntryText; }
    void setDummyEntryText(const QString& text);

    void setSourceModel(QAbstractItemModel* model) override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    /// Accepts one row more than there are.
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    QModelIndex sibling(int row, int column, const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;
    QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;

    /// All roles of a row by name; empty for a row out of range.
    Q_INVOKABLE QVariantMap get(int index) const;
    Q_INVOKABLE QVariantList getAllItems() const;

signals:
    void dummyEntryTextChanged();

private:
    void resetRows();

    QString m_dummyEntryText;
    DelayedSignalTrigger* m_trigger;
};

/// All kernos by title.
class KernoComboBoxModel : public ComboBoxProxyModel {
    Q_OBJECT

public:
    explicit KernoComboBoxModel(QObject* parent = nullptr);

    /// The row of a kerno; 0, the row of no choice, for an unknown one.
    Q_INVOKABLE int findIndex(int kernoId) const;
    /// The kerno of a row; -1 for the row of no choice.
    Q_INVOKABLE int getKernoId(int index) const;
};

/// Values of a property, after a row that stands for a new one.
class SourceMetadataValueComboBoxProxyModel : public ComboBoxProxyModel {
    Q_OBJECT

public:
    explicit SourceMetadataValueComboBoxProxyModel(QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
};
