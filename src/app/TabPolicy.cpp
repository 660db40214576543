#include "app/TabPolicy.h"

#include <algorithm>

namespace tabs {

QList<int> restored(const QList<int>& remembered, const QList<int>& existing) {
    QList<int> ids;
    std::copy_if(remembered.cbegin(), remembered.cend(), std::back_inserter(ids),
                 [&](int id) { return existing.contains(id) && !ids.contains(id); });
    for (int id : existing) {
        if (ids.size() >= maxCurrentTabs)
            break;
        if (!ids.contains(id))
            ids << id;
    }
    return trimCurrentIdsIfNeeded(ids);
}

QList<int> withFirst(const QList<int>& ids, int id) {
    return ids.contains(id) ? ids : (QList<int>{id} + ids).mid(0, maxCurrentTabs);
}

QList<int> trimCurrentIdsIfNeeded(QList<int> ids) {
    while (ids.size() > maxCurrentTabs)
        ids.removeAt(maxCurrentTabs - 1);
    return ids;
}

bool takesNew(const QList<int>& ids, bool own) {
    return own || ids.size() < maxCurrentTabs;
}

}  // namespace tabs
