#pragma once

#include <QAbstractListModel>
#include <QVariant>

/// A list of any values that QML fills and edits. A view keeps its delegates when a list of the same length
/// is assigned.
class VariantListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QVariantList items READ items WRITE setItems NOTIFY itemsChanged)
    Q_PROPERTY(QString itemIdField READ itemIdField WRITE setItemIdField NOTIFY itemIdFieldChanged)
    Q_PROPERTY(bool duplicatesAllowed READ duplicatesAllowed WRITE setDuplicatesAllowed NOTIFY
                   duplicatesAllowedChanged)
    Q_PROPERTY(bool dummy READ dummy WRITE setDummy NOTIFY dummyChanged)
    Q_PROPERTY(bool simplifiedItemManagement READ simplifiedItemManagement WRITE setSimplifiedItemManagement
                   NOTIFY simplifiedItemManagementChanged)

public:
    enum Role { ModelDataRole = Qt::UserRole + 1 };

    explicit VariantListModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// The item as it stands, for every role.
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int count() const { return m_items.size(); }
    QVariantList items() const { return m_items; }
    void setItems(const QVariantList& items);
    QString itemIdField() const { return m_itemIdField; }
    void setItemIdField(const QString& field);
    bool duplicatesAllowed() const { return m_duplicatesAllowed; }
    void setDuplicatesAllowed(bool allowed);
    bool dummy() const { return m_dummy; }
    void setDummy(bool dummy);
    bool simplifiedItemManagement() const { return m_simplifiedItemManagement; }
    void setSimplifiedItemManagement(bool simplified);

    /// Forces bindings on `dummy` to be evaluated again.
    Q_INVOKABLE void toggleDummy() { setDummy(!m_dummy); }

    Q_INVOKABLE void append(const QVariant& item);
    Q_INVOKABLE void append(const QVariantList& items);
    Q_INVOKABLE void insert(int i, const QVariant& item);
    Q_INVOKABLE void insert(int i, const QVariantList& items);
    Q_INVOKABLE void replace(int i, const QVariant& item);
    /// `to` is the place of the item after the move.
    Q_INVOKABLE void move(int from, int to);
    Q_INVOKABLE void removeAt(int i);
    /// Indices outside the list are skipped, though `count` rows are announced.
    Q_INVOKABLE void removeAt(int i, int count);
    Q_INVOKABLE QVariant takeAt(int i);
    Q_INVOKABLE void clear();
    /// Removes the first equal item; whether there was one.
    Q_INVOKABLE bool remove(const QVariant& item);
    Q_INVOKABLE bool contains(const QVariant& item) const;
    Q_INVOKABLE int indexOf(const QVariant& item, int from = 0) const;
    Q_INVOKABLE int lastIndexOf(const QVariant& item, int from = -1) const;
    Q_INVOKABLE QVariant get(int i) const;
    /// Announces a change of the first equal item.
    Q_INVOKABLE void notifyItemChanged(const QVariant& item);

signals:
    void countChanged();
    void itemsChanged();
    void itemIdFieldChanged();
    void duplicatesAllowedChanged();
    void dummyChanged();
    void simplifiedItemManagementChanged();

private:
    void insertItems(int i, const QVariantList& items);
    void emitItemsChanged();

    QVariantList m_items;
    QString m_itemIdField;
    bool m_duplicatesAllowed = false;
    bool m_dummy = false;
    bool m_simplifiedItemManagement = false;
};
