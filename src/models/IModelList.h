#pragma once

#include "models/IModelListBase.h"
#include "models/RowIndex.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QRecursiveMutex>
#include <QVector>
#include <optional>
#include <vector>

/// A list model over records of type `T` with keys of type `K` and field numbers `F`, which double as roles.
/// Changes are applied row by row, so that views keep their delegates.
///
/// Every public operation takes the model's recursive mutex, so rows may be read from other threads; they
/// change on the main thread. Records are found by key without a search. The bodies stand in
/// IModelListRows.h; the instantiations in IModelList.cpp.
template <typename T, typename K, typename F> class IModelList : public IModelListBase {
public:
    using RecordType = T;
    using Row = ModelRow<T>;

    explicit IModelList(DataHelper* helper, QObject* parent = nullptr);
    ~IModelList() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// A copy of the record of a row; an empty record for a row out of range.
    virtual T at(int row) const;

    /// Replaces all rows, and announces only what has to be: added or removed rows at the end, and a change
    /// of the others. An empty list on an empty model does nothing.
    virtual void setData(const QList<T>& list);
    using IModelListBase::setData;

    /// Adds or updates the records of a JSON array, or of a single object. Elements that can't be read are
    /// skipped.
    virtual void setFromJson(const QJsonValue& value);
    virtual void addFromJson(const QJsonObject& object);

    virtual QJsonArray toJson() const;
    virtual QVariantList toVariantList() const;

    /// Updates the row with that key or inserts a new one; an invalid record is ignored.
    void addOrUpdate(const T& record);

    /// The same for many, of which those that are new are inserted in one step after the last row.
    void addOrUpdateAll(const QList<T>& records);

    /// Whether there was such a row.
    bool removeByKey(const K& key);
    /// The same for many: rows that follow each other go in one step.
    void removeByKeys(const QList<K>& keys);

    /// The record with that key, or an empty one. Of several rows with one key it is the last.
    T record(const K& key) const;
    bool contains(const K& key) const { return indexOfKey(key) >= 0; }
    /// The row of a key; -1 when absent.
    int indexOfKey(const K& key) const;

    /// All records, in row order.
    QList<T> snapshot() const;

    bool readAhead() override;

    /// The lock over the rows.
    QRecursiveMutex* mutex() const { return &m_mutex; }

protected:
    /// Reads the records of the project, blocking: none on a closed project. False when the read failed, and
    /// the model keeps what it has.
    virtual bool fetchAll(QList<T>& list);
    /// The same, or the records that were read ahead.
    bool takeAll(QList<T>& list);
    void fetchAndPublish() override;
    void onVariantData(const QVariant& data) override;

    /// Empties the model, so that the next project starts from nothing.
    void beforeFileClosed() override;

    /// Where a new record goes: by default after the last row.
    virtual int insertionRow(const T& record) const;

    virtual void onModelRemoved(const T& /*record*/, int /*row*/) {}
    virtual void onModelAdded(int /*row*/, const T& /*record*/) {}
    virtual void onModelUpdated(int /*row*/, const T& /*record*/, const QVector<int>& /*changedRoles*/) {}

    /// Runs after rows came or went, or all were replaced.
    virtual void afterRowsChanged() {}

    /// Keeps `index`, a member of the derived class, in step with the rows.
    void addIndex(RowIndexBase<T>* index) { m_indices.push_back(index); }

    /// The rows themselves; valid under the mutex. Fields that are keys of an index change through
    /// `addOrUpdate` alone.
    const QList<Row*>& items() const { return m_items; }
    Row* rowOf(const K& key) const;

    /// Empties the model by a reset.
    void resetToEmpty();
    /// Adds records whose keys aren't there yet after the last row, in one step.
    void appendRows(const QList<T>& records);
    /// Puts a record at the end, or moves a row; both without any signal.
    void appendRow(const T& record);
    void moveRow(int from, int to);

    void emitAllChanged(const QVector<int>& roles = {});
    void emitRowsChanged(int first, int last, const QVector<int>& roles = {});

    mutable QRecursiveMutex m_mutex;

private:
    void replaceRows(const QList<T>& list);
    void insertRow(int row, const T& record);
    void assignRow(Row* row, const T& record);
    void takeRow(int row);
    void removeRun(int first, int last);
    void attach(Row* row);
    void detach(Row* row);
    void renumber(int first, int last);

    std::optional<QList<T>> m_ahead;
    QList<Row*> m_items;
    QHash<K, Row*> m_byKey;
    bool m_hadDuplicates = false;
    std::vector<RowIndexBase<T>*> m_indices;
};
