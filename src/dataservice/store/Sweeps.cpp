#include "store/Sweeps.h"

#include <algorithm>

void CoveredLength::add(qint64 start, qint64 end) {
    const qint64 from = qMax(start, m_reached);
    if (end > from) {
        m_total += end - from;
        m_reached = end;
    }
}

void OverlapSweep::add(qint64 kernoId, qint64 start, qint64 end) {
    for (size_t i = 0; i < m_open.size();) {
        OpenKerno& other = m_open[i];
        while (!other.ends.empty() && other.ends.front() <= start) {
            std::pop_heap(other.ends.begin(), other.ends.end(), std::greater<>());
            other.ends.pop_back();
        }
        if (other.ends.empty()) {
            std::swap(other, m_open.back());
            m_open.pop_back();
            continue;
        }
        // A range of no length overlaps only those that began before it.
        const bool sameStart = end <= start && other.latestStart == start;
        const qint64 count = static_cast<qint64>(other.ends.size()) - (sameStart ? other.startedAtLatest : 0);
        if (count > 0)
            m_found(kernoId, other.kernoId, count);
        ++i;
    }
    if (end <= start)
        return;
    auto own = std::find_if(m_open.begin(), m_open.end(),
                            [&](const OpenKerno& open) { return open.kernoId == kernoId; });
    if (own == m_open.end()) {
        m_open.push_back({kernoId, {}, 0, 0});
        own = m_open.end() - 1;
    }
    own->startedAtLatest = own->latestStart == start && !own->ends.empty() ? own->startedAtLatest + 1 : 1;
    own->latestStart = start;
    own->ends.push_back(end);
    std::push_heap(own->ends.begin(), own->ends.end(), std::greater<>());
}
