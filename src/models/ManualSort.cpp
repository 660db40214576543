#include "models/ManualSort.h"

void ManualSortOrder::set(const QList<int>& ids) {
    m_ids = ids;
    m_places.clear();
    m_places.reserve(ids.size());
    for (int i = ids.size() - 1; i >= 0; --i)
        m_places.insert(ids.at(i), i);
}
