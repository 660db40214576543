#pragma once

#include <QHash>
#include <QList>
#include <QVarLengthArray>
#include <algorithm>

/// A record in a list model, with the row where it stands.
template <typename T> struct ModelRow : T {
    explicit ModelRow(const T& record) : T(record) {}
    int row = -1;
};

/// A look-up that a list model keeps in step with its rows.
template <typename T> class RowIndexBase {
public:
    virtual ~RowIndexBase() = default;
    virtual void add(ModelRow<T>* row) = 0;
    virtual void remove(ModelRow<T>* row) = 0;
    virtual void clear() = 0;
};

/// The rows of each key, in row order. Row numbers may shift as long as their order stays.
template <typename T, typename Key> class RowIndex final : public RowIndexBase<T> {
public:
    using Rows = QVarLengthArray<ModelRow<T>*, 1>;
    using KeyOf = Key (*)(const T&);

    explicit RowIndex(KeyOf keyOf) : m_keyOf(keyOf) {}

    const Rows& rows(const Key& key) const {
        static const Rows none;
        const auto found = m_rows.constFind(key);
        return found == m_rows.constEnd() ? none : found.value();
    }

    /// Copies of the records of a key, in row order.
    QList<T> records(const Key& key) const {
        QList<T> list;
        for (const ModelRow<T>* row : rows(key))
            list.append(*row);
        return list;
    }

    void add(ModelRow<T>* row) override {
        Rows& rows = m_rows[m_keyOf(*row)];
        if (rows.isEmpty() || rows.last()->row < row->row) {
            rows.append(row);
            return;
        }
        const auto at = place(rows, row);
        rows.insert(at, row);
    }

    void remove(ModelRow<T>* row) override {
        const auto found = m_rows.find(m_keyOf(*row));
        if (found == m_rows.end())
            return;
        Rows& rows = found.value();
        const auto at = place(rows, row);
        if (at != rows.end() && *at == row)
            rows.erase(at);
        if (rows.isEmpty())
            m_rows.erase(found);
    }

    void clear() override { m_rows.clear(); }

private:
    static typename Rows::iterator place(Rows& rows, const ModelRow<T>* row) {
        return std::lower_bound(rows.begin(), rows.end(), row,
                                [](const ModelRow<T>* a, const ModelRow<T>* b) { return a->row < b->row; });
    }

    KeyOf m_keyOf;
    QHash<Key, Rows> m_rows;
};
