#pragma once

#include <type_traits>

#include <QString>

class KRNFile;

/// What commands need to know of one kind of record.
template <typename T> struct RecordFacts {
    void (*save)(KRNFile& file, const T& record);
    void (*remove)(KRNFile& file, const T& record);
    /// The record that the project has under this id or key, or an invalid one.
    T (*stored)(KRNFile& file, const typename T::Key& key);
    /// Makes a new record of it: reserves an id unless it has one, or no id would make it usable, and names
    /// its author.
    void (*create)(T& record, const QString& author);
};

/// Defined for every kind of record that commands change.
template <typename T> const RecordFacts<T>& factsOf();

/// Whether a command can work with the record. The id is asked for on its own, since not every record's own
/// test looks at it, and a copy of an empty record counts as readable.
template <typename T> bool isUsable(const T& record) {
    if constexpr (std::is_same_v<typename T::Key, int>)
        return record.id() > 0 && record.isValid();
    else
        return record.isValid();
}
