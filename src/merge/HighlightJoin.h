#pragma once

#include "records/Highlight.h"

#include <QHash>
#include <QList>
#include <QPair>

/// Adds highlights to a list so that one which overlaps or touches a stored one of the same source, question,
/// kerno and author widens the first such instead. Knows by a map where those stand.
class HighlightJoin {
public:
    /// The list isn't owned; nobody else changes it meanwhile.
    explicit HighlightJoin(QList<Highlight>& list);

    /// False when a stored highlight was widened and nothing was added.
    bool add(const Highlight& highlight);

private:
    using Key = QPair<QPair<int, int>, QPair<int, QString>>;
    static Key keyOf(const Highlight& highlight);

    QList<Highlight>& m_list;
    QHash<Key, QVector<int>> m_rows;
};
