#pragma once

#include "link/DataHelper.h"
#include "models/IModelList.h"
#include "records/RecordFields.h"

#include <QDebug>
#include <QMutexLocker>
#include <QSet>
#include <algorithm>

// The bodies of IModelList. Only IModelList.cpp includes this file.

template <typename T, typename K, typename F>
IModelList<T, K, F>::IModelList(DataHelper* helper, QObject* parent) : IModelListBase(helper, parent) {}

template <typename T, typename K, typename F> IModelList<T, K, F>::~IModelList() {
    qDeleteAll(m_items);
}

template <typename T, typename K, typename F>
int IModelList<T, K, F>::rowCount(const QModelIndex& parent) const {
    const QMutexLocker lock(&m_mutex);
    return parent.isValid() ? 0 : m_items.size();
}

template <typename T, typename K, typename F>
QVariant IModelList<T, K, F>::data(const QModelIndex& index, int role) const {
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    if (row < 0 || row >= m_items.size())
        return {};
    return m_items.at(row)->fieldValue(role, false);
}

template <typename T, typename K, typename F> QHash<int, QByteArray> IModelList<T, K, F>::roleNames() const {
    return T::roleNames();
}

template <typename T, typename K, typename F> T IModelList<T, K, F>::at(int row) const {
    const QMutexLocker lock(&m_mutex);
    if (row < 0 || row >= m_items.size())
        return T();
    return *m_items.at(row);
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::setData(const QList<T>& list) {
    const QMutexLocker lock(&m_mutex);
    const int before = m_items.size();
    const int after = list.size();
    if (before == 0 && after == 0)
        return;
    if (before == 0) {
        beginResetModel();
        replaceRows(list);
        endResetModel();
    } else if (before == after) {
        replaceRows(list);
        emitRowsChanged(0, after - 1);
    } else if (after < before) {
        beginRemoveRows({}, after, before - 1);
        replaceRows(list);
        endRemoveRows();
        emitRowsChanged(0, after - 1);
    } else {
        beginInsertRows({}, before, after - 1);
        replaceRows(list);
        endInsertRows();
        emitRowsChanged(0, before - 1);
    }
    announceInitialData();
    afterRowsChanged();
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::setFromJson(const QJsonValue& value) {
    const QMutexLocker lock(&m_mutex);
    if (!value.isArray()) {
        addFromJson(value.toObject());
        return;
    }
    const QJsonArray array = value.toArray();
    qDebug() << array.size();
    const int before = m_items.size();
    for (const QJsonValue& element : array)
        addFromJson(element.toObject());
    const int after = m_items.size();
    if (before != 0)
        emitRowsChanged(0, after > before ? before - 1 : after - 1);
    announceInitialData();
}

template <typename T, typename K, typename F>
void IModelList<T, K, F>::addFromJson(const QJsonObject& object) {
    const QJsonValue key = object.value(T::wireName(static_cast<F>(firstFieldNumber)));
    if (key.isUndefined() || (key.toInt() == 0 && key.toString().isNull()))
        return;
    addOrUpdate(T(object, ""));
}

template <typename T, typename K, typename F> QJsonArray IModelList<T, K, F>::toJson() const {
    QJsonArray array;
    const QList<T> records = snapshot();
    for (const T& record : records)
        array.append(record.toJson());
    return array;
}

template <typename T, typename K, typename F> QVariantList IModelList<T, K, F>::toVariantList() const {
    QVariantList list;
    const QList<T> records = snapshot();
    list.reserve(records.size());
    for (const T& record : records)
        list.append(record.toVariantMap());
    return list;
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::addOrUpdate(const T& record) {
    const QMutexLocker lock(&m_mutex);
    if (!record.isValid())
        return;
    Row* existing = rowOf(record.id());
    if (!existing) {
        insertRow(insertionRow(record), record);
        return;
    }
    QVector<int> changedRoles;
    for (const FieldInfo& field : T::fieldInfos()) {
        if (existing->fieldValue(field.number, false) != record.fieldValue(field.number, false))
            changedRoles.append(field.number);
    }
    assignRow(existing, record);
    onModelUpdated(existing->row, record, changedRoles);
    // The model may have moved the row.
    const int row = indexOfKey(record.id());
    if (row >= 0 && !changedRoles.isEmpty())
        emitRowsChanged(row, row, changedRoles);
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::insertRow(int row, const T& record) {
    beginInsertRows({}, row, row);
    Row* added = new Row(record);
    m_items.insert(row, added);
    renumber(row, m_items.size() - 1);
    attach(added);
    endInsertRows();
    onModelAdded(row, record);
    afterRowsChanged();
}

template <typename T, typename K, typename F>
void IModelList<T, K, F>::addOrUpdateAll(const QList<T>& records) {
    const QMutexLocker lock(&m_mutex);
    QList<T> added;
    QSet<K> addedKeys;
    const auto append = [&] {
        const int first = m_items.size();
        appendRows(added);
        for (int i = 0; i < added.size(); ++i)
            onModelAdded(first + i, added.at(i));
        added.clear();
        addedKeys.clear();
    };
    for (const T& record : records) {
        if (!record.isValid())
            continue;
        if (addedKeys.contains(record.id()))
            append();
        if (contains(record.id())) {
            addOrUpdate(record);
        } else {
            added.append(record);
            addedKeys.insert(record.id());
        }
    }
    append();
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::removeByKeys(const QList<K>& keys) {
    const QMutexLocker lock(&m_mutex);
    // Several rows of one key are sorted out one by one.
    if (m_hadDuplicates) {
        for (const K& key : keys)
            removeByKey(key);
        return;
    }
    QVector<int> rows;
    for (const K& key : keys) {
        if (const Row* row = rowOf(key))
            rows.append(row->row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (int last = rows.size() - 1; last >= 0;) {
        int first = last;
        while (first > 0 && rows.at(first - 1) == rows.at(first) - 1)
            --first;
        removeRun(rows.at(first), rows.at(last));
        last = first - 1;
    }
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::removeRun(int first, int last) {
    beginRemoveRows({}, first, last);
    const QList<Row*> removed = m_items.mid(first, last - first + 1);
    for (Row* row : removed)
        detach(row);
    m_items.erase(m_items.begin() + first, m_items.begin() + last + 1);
    renumber(first, m_items.size() - 1);
    endRemoveRows();
    for (int i = removed.size() - 1; i >= 0; --i)
        onModelRemoved(*removed.at(i), first + i);
    qDeleteAll(removed);
    afterRowsChanged();
    emit modelDeleted();
}

template <typename T, typename K, typename F> bool IModelList<T, K, F>::removeByKey(const K& key) {
    const QMutexLocker lock(&m_mutex);
    const int row = indexOfKey(key);
    if (row < 0)
        return false;
    const T removed = *m_items.at(row);
    beginRemoveRows({}, row, row);
    takeRow(row);
    endRemoveRows();
    onModelRemoved(removed, row);
    afterRowsChanged();
    emit modelDeleted();
    return true;
}

template <typename T, typename K, typename F> T IModelList<T, K, F>::record(const K& key) const {
    const QMutexLocker lock(&m_mutex);
    if (const Row* row = rowOf(key))
        return *row;
    return T();
}

template <typename T, typename K, typename F> int IModelList<T, K, F>::indexOfKey(const K& key) const {
    const QMutexLocker lock(&m_mutex);
    const Row* row = rowOf(key);
    return row ? row->row : -1;
}

template <typename T, typename K, typename F>
typename IModelList<T, K, F>::Row* IModelList<T, K, F>::rowOf(const K& key) const {
    return m_byKey.value(key, nullptr);
}

template <typename T, typename K, typename F> QList<T> IModelList<T, K, F>::snapshot() const {
    const QMutexLocker lock(&m_mutex);
    QList<T> list;
    list.reserve(m_items.size());
    for (const Row* row : m_items)
        list.append(*row);
    return list;
}

template <typename T, typename K, typename F> bool IModelList<T, K, F>::fetchAll(QList<T>& list) {
    return !dataHelper() || dataHelper()->findAll(list);
}

template <typename T, typename K, typename F> bool IModelList<T, K, F>::readAhead() {
    QList<T> list;
    const bool read = fetchAll(list);
    if (read)
        m_ahead = list;
    return read;
}

template <typename T, typename K, typename F> bool IModelList<T, K, F>::takeAll(QList<T>& list) {
    if (!m_ahead)
        return fetchAll(list);
    list = *m_ahead;
    m_ahead.reset();
    return true;
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::beforeFileClosed() {
    m_ahead.reset();
    setData(QList<T>());
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::fetchAndPublish() {
    QList<T> list;
    if (takeAll(list))
        emit asyncDataFetched(QVariant::fromValue(list));
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::onVariantData(const QVariant& data) {
    QVariant list = data;
    if (list.userType() != qMetaTypeId<QList<T>>() && !list.convert(qMetaTypeId<QList<T>>()))
        list = QVariant::fromValue(QList<T>());
    setData(list.value<QList<T>>());
}

template <typename T, typename K, typename F> int IModelList<T, K, F>::insertionRow(const T&) const {
    return m_items.size();
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::resetToEmpty() {
    const QMutexLocker lock(&m_mutex);
    beginResetModel();
    replaceRows({});
    endResetModel();
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::appendRow(const T& record) {
    Row* added = new Row(record);
    m_items.append(added);
    added->row = m_items.size() - 1;
    attach(added);
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::appendRows(const QList<T>& records) {
    if (records.isEmpty())
        return;
    const int before = m_items.size();
    beginInsertRows({}, before, before + records.size() - 1);
    for (const T& record : records)
        appendRow(record);
    endInsertRows();
    afterRowsChanged();
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::moveRow(int from, int to) {
    Row* moved = m_items.at(from);
    for (RowIndexBase<T>* index : m_indices)
        index->remove(moved);
    m_items.move(from, to);
    renumber(qMin(from, to), qMax(from, to));
    for (RowIndexBase<T>* index : m_indices)
        index->add(moved);
}

template <typename T, typename K, typename F>
void IModelList<T, K, F>::emitAllChanged(const QVector<int>& roles) {
    emitRowsChanged(0, m_items.size() - 1, roles);
}

template <typename T, typename K, typename F>
void IModelList<T, K, F>::emitRowsChanged(int first, int last, const QVector<int>& roles) {
    if (last >= first)
        emit dataChanged(index(first, 0), index(last, 0), roles);
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::replaceRows(const QList<T>& list) {
    m_byKey.clear();
    m_hadDuplicates = false;
    for (RowIndexBase<T>* index : m_indices)
        index->clear();
    while (m_items.size() > list.size())
        delete m_items.takeLast();
    m_items.reserve(list.size());
    m_byKey.reserve(list.size());
    for (int i = 0; i < list.size(); ++i) {
        if (i < m_items.size())
            static_cast<T&>(*m_items.at(i)) = list.at(i);
        else
            m_items.append(new Row(list.at(i)));
        m_items.at(i)->row = i;
        attach(m_items.at(i));
    }
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::assignRow(Row* row, const T& record) {
    detach(row);
    static_cast<T&>(*row) = record;
    attach(row);
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::takeRow(int row) {
    Row* taken = m_items.at(row);
    detach(taken);
    m_items.removeAt(row);
    renumber(row, m_items.size() - 1);
    delete taken;
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::attach(Row* row) {
    Row*& known = m_byKey[row->id()];
    m_hadDuplicates = m_hadDuplicates || known;
    if (!known || known->row < row->row)
        known = row;
    for (RowIndexBase<T>* index : m_indices)
        index->add(row);
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::detach(Row* row) {
    for (RowIndexBase<T>* index : m_indices)
        index->remove(row);
    const K key = row->id();
    if (rowOf(key) != row)
        return;
    m_byKey.remove(key);
    if (!m_hadDuplicates)
        return;
    for (int i = m_items.size() - 1; i >= 0; --i) {
        if (m_items.at(i) != row && m_items.at(i)->id() == key) {
            m_byKey.insert(key, m_items.at(i));
            return;
        }
    }
}

template <typename T, typename K, typename F> void IModelList<T, K, F>::renumber(int first, int last) {
    for (int i = first; i <= last; ++i)
        m_items.at(i)->row = i;
}
