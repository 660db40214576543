#include "project/KernoTree.h"

#include "project/SortOrder.h"

#include <QMultiHash>
#include <algorithm>

namespace kernotree {

QList<Kerno> without(const QList<Kerno>& kernos, const QSet<int>& ids) {
    QList<Kerno> rest;
    std::copy_if(kernos.begin(), kernos.end(), std::back_inserter(rest),
                 [&ids](const Kerno& kerno) { return !ids.contains(kerno.kernoId()); });
    return rest;
}

QList<Kerno> topLevel(const QList<Kerno>& kernos) {
    QList<Kerno> top;
    std::copy_if(kernos.begin(), kernos.end(), std::back_inserter(top),
                 [](const Kerno& kerno) { return kerno.parentKernoId() < 1; });
    return top;
}

QList<Kerno> descendants(const QList<Kerno>& kernos, int parentId) {
    QHash<int, QList<Kerno>> children;
    for (const Kerno& kerno : kernos)
        children[kerno.parentKernoId()].append(kerno);
    QSet<int> seen{parentId};
    QList<Kerno> below;
    int next = parentId;
    for (int i = 0; i <= below.size(); ++i) {
        for (const Kerno& child : children.value(next)) {
            if (!seen.contains(child.kernoId())) {
                seen.insert(child.kernoId());
                below.append(child);
            }
        }
        if (i < below.size())
            next = below.at(i).kernoId();
    }
    return below;
}

QVariantList parents(const QVariantList& parentIds) {
    QSet<int> seen;
    QVariantList ids;
    for (const QVariant& value : parentIds) {
        const int id = value.toInt();
        if (id > 0 && !seen.contains(id)) {
            seen.insert(id);
            ids.append(id);
        }
    }
    return ids;
}

QVariantList sortedIds(QList<Kerno> kernos, int field, bool descending) {
    std::stable_sort(kernos.begin(), kernos.end(), [=](const Kerno& a, const Kerno& b) {
        const QVariant left = a.fieldValue(field, false);
        const QVariant right = b.fieldValue(field, false);
        return descending ? order::lessThan(right, left) : order::lessThan(left, right);
    });
    QVariantList ids;
    for (const Kerno& kerno : qAsConst(kernos))
        ids.append(kerno.kernoId());
    return ids;
}

}  // namespace kernotree
