#include "models/ManualSort.h"

#include <QSet>

void ManualSortOrder::set(const QList<int>& ids) {
    m_ids = ids;
    m_places.clear();
    m_places.reserve(ids.size());
    for (int i = ids.size() - 1; i >= 0; --i)
        m_places.insert(ids.at(i), i);
}

namespace manualsort {

QList<int> updated(const QList<int>& held, const QList<int>& present) {
    const QSet<int> stillThere(present.cbegin(), present.cend());
    QSet<int> known;
    QList<int> result;
    for (int id : held) {
        if (stillThere.contains(id)) {
            result.append(id);
            known.insert(id);
        }
    }
    for (int id : present) {
        if (!known.contains(id)) {
            known.insert(id);
            result.append(id);
        }
    }
    return result;
}

}  // namespace manualsort
