#pragma once

#include <QSortFilterProxyModel>
#include <QVariantList>

/// The sources in the order that the user chose, filtered by title.
class SourceProxyModel : public QSortFilterProxyModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int sortMode READ sortMode WRITE setSortMode NOTIFY sortModeChanged)
    Q_PROPERTY(int globalPercentageCoded READ globalPercentageCoded NOTIFY globalPercentageCodedChanged)

public:
    explicit SourceProxyModel(QObject* parent = nullptr);

    int count() const { return rowCount(); }
    /// Index into `getSortModes()`; odd modes descend.
    int sortMode() const { return m_sortMode; }
    void setSortMode(int mode);
    int globalPercentageCoded() const;

    /// The texts of the sort modes, in order.
    Q_INVOKABLE QVariantList getSortModes() const;
    /// One role of a row; invalid for an unknown name or a row out of range.
    Q_INVOKABLE QVariant get(int index, const QByteArray& roleName) const;

    /// The role that a sort mode sorts by.
    static int sortRoleOf(int mode);

signals:
    void countChanged();
    void sortModeChanged();
    void globalPercentageCodedChanged();

private:
    int m_sortMode = 0;
    mutable QHash<QByteArray, int> m_rolesByName;
};
