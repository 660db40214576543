#pragma once

#include <QAbstractListModel>
#include <QSortFilterProxyModel>
#include <QVariantMap>

/// A list model of plain maps that a test fills; the keys of the first row ever set become the roles.
class MockRows : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int columns READ columns WRITE setColumns NOTIFY columnsChanged)

public:
    explicit MockRows(QObject* parent = nullptr) : QAbstractListModel(parent) {}
    explicit MockRows(const QStringList& roles) : m_roles(roles) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : m_rows.size();
    }
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    int columns() const { return m_columns; }
    void setColumns(int columns);
    int role(const QString& name) const { return Qt::UserRole + 1 + m_roles.indexOf(name); }

    Q_INVOKABLE void reset(const QVariantList& rows);
    Q_INVOKABLE void append(const QVariantMap& row);
    Q_INVOKABLE void change(int row, const QVariantMap& values);
    Q_INVOKABLE void removeAt(int row);
    Q_INVOKABLE QVariantMap row(int row) const { return m_rows.value(row).toMap(); }
    Q_INVOKABLE int find(const QString& key, const QVariant& value) const;

signals:
    void columnsChanged();

private:
    QStringList m_roles;
    QVariantList m_rows;
    int m_columns = 1;
};

/// Stands in for the program's proxies: the rows of one shared source whose `filterRoleName` equals
/// `filterValue`.
class MockProxy : public QSortFilterProxyModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    MockProxy(MockRows* rows, const QString& filterRoleName, QObject* parent = nullptr);

    int count() const { return rowCount(); }
    Q_INVOKABLE QVariant get(int index, const QByteArray& roleName) const;

signals:
    void countChanged();

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    void setFilterValue(int value);
    int filterValue() const { return m_filterValue; }
    MockRows* rows() const { return static_cast<MockRows*>(sourceModel()); }

private:
    QString m_filterRoleName;
    int m_filterValue = -1;
};

class MockKernos : public MockProxy {
    Q_OBJECT
    Q_PROPERTY(int parentKernoId READ parentKernoId WRITE setParentKernoId NOTIFY changed)
    Q_PROPERTY(int sortType MEMBER m_sortType NOTIFY changed)
    Q_PROPERTY(bool manualSort MEMBER m_manualSort NOTIFY changed)
    Q_PROPERTY(QList<int> manualSortOrder MEMBER m_manualSortOrder NOTIFY changed)

public:
    enum SortType {
        NoSort = 0,
        ManualSort = 2,
        ByTitleAscending = 4,
        ByTitleDescending = 5,
        ByTimestampAscending = 8,
        ByTimestampDescending = 9,
        ByNumberOfHighlightsAscending = 16,
        ByNumberOfHighlightsDescending = 17
    };
    Q_ENUM(SortType)

    explicit MockKernos(QObject* parent = nullptr);
    static MockRows* source();

    int parentKernoId() const { return filterValue(); }
    void setParentKernoId(int id);
    Q_INVOKABLE QList<int> currentSortOrder() const;

signals:
    void changed();

private:
    int m_sortType = NoSort;
    bool m_manualSort = false;
    QList<int> m_manualSortOrder;
};

class MockSources : public MockProxy {
    Q_OBJECT
    Q_PROPERTY(int sortMode MEMBER m_sortMode NOTIFY changed)
    Q_PROPERTY(int globalPercentageCoded MEMBER m_percentage NOTIFY changed)

public:
    explicit MockSources(QObject* parent = nullptr);
    static MockRows* source();

    Q_INVOKABLE QVariantList getSortModes() const;

signals:
    void changed();

private:
    int m_sortMode = 0;
    int m_percentage = 7;
};

class MockAnswers : public MockProxy {
    Q_OBJECT
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)

public:
    explicit MockAnswers(QObject* parent = nullptr);
    static MockRows* source();

    int sourceId() const { return filterValue(); }
    void setSourceId(int id);

signals:
    void sourceIdChanged();
};

/// The kernos behind the dummy row of a combo box.
class MockKernoChoice : public MockKernos {
    Q_OBJECT
    Q_PROPERTY(QString dummyEntryText MEMBER m_dummyEntryText)

public:
    using MockKernos::MockKernos;

    Q_INVOKABLE int findIndex(int kernoId) const { return currentSortOrder().indexOf(kernoId); }
    Q_INVOKABLE int getKernoId(int index) const { return currentSortOrder().value(index, -1); }

private:
    QString m_dummyEntryText;
};

/// The enumerations that screens use by name.
class MockKernovaQml : public QObject {
    Q_OBJECT

public:
    enum Order { OrderAscending, OrderDescending };
    Q_ENUM(Order)
};
