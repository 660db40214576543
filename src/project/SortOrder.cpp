#include "project/SortOrder.h"

#include <QDateTime>
#include <QSet>
#include <algorithm>

namespace order {

QVariantList byManualOrder(const QVariantList& ids, const QVariantList& manual) {
    QSet<int> waiting;
    for (const QVariant& id : ids)
        waiting.insert(id.toInt());
    QVariantList ordered;
    ordered.reserve(ids.size());
    for (const QVariant& id : manual) {
        if (waiting.remove(id.toInt()))
            ordered.append(id.toInt());
    }
    for (const QVariant& id : ids) {
        if (waiting.remove(id.toInt()))
            ordered.append(id);
    }
    return ordered;
}

bool lessThan(const QVariant& a, const QVariant& b) {
    switch (static_cast<QMetaType::Type>(a.type())) {
    case QMetaType::QString:
        return QString::localeAwareCompare(a.toString(), b.toString()) < 0;
    case QMetaType::QDateTime:
        return a.toDateTime() < b.toDateTime();
    default:
        return a.toDouble() < b.toDouble();
    }
}

QVariantList byMember(QVariantList maps, const QString& name) {
    std::stable_sort(maps.begin(), maps.end(), [&name](const QVariant& a, const QVariant& b) {
        return lessThan(a.toMap().value(name), b.toMap().value(name));
    });
    return maps;
}

}  // namespace order
