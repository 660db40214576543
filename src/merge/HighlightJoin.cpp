#include "merge/HighlightJoin.h"

#include <QDebug>
#include <algorithm>

namespace {

bool meets(const Highlight& stored, const Highlight& added) {
    return (added.start() >= stored.start() && added.start() <= stored.end()) ||
           (stored.start() >= added.start() && stored.start() <= added.end());
}

}  // namespace

HighlightJoin::HighlightJoin(QList<Highlight>& list) : m_list(list) {
    for (int row = 0; row < m_list.size(); ++row)
        m_rows[keyOf(m_list.at(row))].append(row);
}

HighlightJoin::Key HighlightJoin::keyOf(const Highlight& highlight) {
    return {{highlight.sourceId(), highlight.questionId()}, {highlight.kernoId(), highlight.author()}};
}

bool HighlightJoin::add(const Highlight& highlight) {
    QVector<int>& rows = m_rows[keyOf(highlight)];
    for (int row : qAsConst(rows)) {
        Highlight& stored = m_list[row];
        if (!meets(stored, highlight))
            continue;
        qDebug() << "merging overlapping highlights" << stored.start() << stored.end() << highlight.start()
                 << highlight.end() << stored.kernoId();
        const int end = std::max(stored.end(), highlight.end());
        stored.setStart(std::min(stored.start(), highlight.start()));
        stored.setLength(end - stored.start());
        return false;
    }
    rows.append(m_list.size());
    m_list.append(highlight);
    return true;
}
