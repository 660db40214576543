#pragma once

#include <QHash>
#include <QJsonArray>
#include <QList>
#include <QString>
#include <QVariant>

/// One element of a counting read.
template <typename K> struct KeyVariantValue {
    K key{};
    QVariant value;
    QVariant subvalue;
};

/// Told when a list of counts has been replaced.
template <typename K> class KeyVariantValueModelListCallback {
public:
    virtual ~KeyVariantValueModelListCallback() = default;
    virtual void onKeyVariantValuesReplaced() = 0;
};

/// The number of codings of each kerno, with the read that gives it.
class QuoteCounts {
public:
    /// `model` isn't owned.
    explicit QuoteCounts(KeyVariantValueModelListCallback<int>* model);

    QString query() const { return m_query; }

    /// Replaces the list and tells the model.
    void replace(const QList<KeyVariantValue<int>>& values);
    /// Forgets all counts, without a word to the model.
    void clear();
    const QList<KeyVariantValue<int>>& entries() const { return m_entries; }

    /// The elements of a reply's array.
    static QList<KeyVariantValue<int>> fromJson(const QJsonArray& array);

    /// The value of a key; of several entries with that key, the last one's. 0 without one.
    QVariant value(int key) const { return m_values.value(key, 0); }

private:
    QList<KeyVariantValue<int>> m_entries;
    QHash<int, QVariant> m_values;
    QString m_query;
    KeyVariantValueModelListCallback<int>* m_model;
};
