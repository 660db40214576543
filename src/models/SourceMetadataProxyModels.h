#pragma once

#include "models/BaseProxyModel.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"

/// The properties, sorted.
class SourceMetadataKeyProxyModel : public BaseProxyModel {
    Q_OBJECT
    Q_PROPERTY(int sortType READ sortType WRITE setSortType NOTIFY sortTypeChanged)

public:
    enum SortType { SortDefault = 0, SortAlphaNumericAscending = 1, SortAlphaNumericDescending = 2 };
    Q_ENUM(SortType)

    explicit SourceMetadataKeyProxyModel(QObject* parent = nullptr);

    int sortType() const { return m_sortType; }
    void setSortType(int sortType);

    Q_INVOKABLE bool hasKey(const QString& key) const;
    /// The id of the last row with that key; -1 without one.
    Q_INVOKABLE int findKeyId(const QString& key) const;
    /// The key with that id, or an empty record.
    Q_INVOKABLE SourceMetadataKey findKeyWithId(int keyId) const;
    /// Maps with `name` and `value`, for a drop-down.
    Q_INVOKABLE QVariantList getSortTypesDropDown() const;

signals:
    void sortTypeChanged();

private:
    int rowOfKey(const QString& key) const;

    int m_sortType = SortDefault;
    mutable QVariantList m_sortTypes;
};

/// The values of one property, or all with key 0.
class SourceMetadataValueProxyModel : public BaseProxyModel {
    Q_OBJECT
    Q_PROPERTY(int keyId READ keyId WRITE setKeyId NOTIFY keyIdChanged)
    Q_PROPERTY(bool sortAlphabetically READ sortAlphabetically WRITE setSortAlphabetically NOTIFY
                   sortAlphabeticallyChanged)

public:
    explicit SourceMetadataValueProxyModel(QObject* parent = nullptr);

    int keyId() const { return m_keyId; }
    void setKeyId(int keyId);
    bool sortAlphabetically() const { return m_sortAlphabetically; }
    void setSortAlphabetically(bool sortAlphabetically);

    Q_INVOKABLE bool hasValue(const QVariant& value) const;
    /// The value with that id, or an empty record.
    Q_INVOKABLE SourceMetadataValue findValueWithId(int valueId) const;

signals:
    void keyIdChanged();
    void sortAlphabeticallyChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    int m_keyId = 0;
    bool m_sortAlphabetically = false;
};

/// The links of one source and one property, or all with both ids 0.
class SourceMetadataProxyModel : public BaseProxyModel {
    Q_OBJECT
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)
    Q_PROPERTY(int keyId READ keyId WRITE setKeyId NOTIFY keyIdChanged)

public:
    explicit SourceMetadataProxyModel(QObject* parent = nullptr);

    int sourceId() const { return m_sourceId; }
    void setSourceId(int sourceId);
    int keyId() const { return m_keyId; }
    void setKeyId(int keyId);

signals:
    void sourceIdChanged();
    void keyIdChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    int m_sourceId = 0;
    int m_keyId = 0;
};
