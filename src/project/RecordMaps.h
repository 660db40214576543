#pragma once

#include <QList>
#include <QVariantList>

/// The records as maps, for screens.
template <typename T> QVariantList toMaps(const QList<T>& records) {
    QVariantList maps;
    maps.reserve(records.size());
    for (const T& record : records)
        maps.append(record.toVariantMap());
    return maps;
}
