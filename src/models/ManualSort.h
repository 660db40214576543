#pragma once

#include <QHash>
#include <QList>

/// An order of ids that a user made by hand, with the place of each id looked up.
class ManualSortOrder {
public:
    void set(const QList<int>& ids);
    const QList<int>& ids() const { return m_ids; }

    /// The first place of an id; -1 when absent, so that unknown ids come first.
    int place(int id) const { return m_places.value(id, -1); }
    bool lessThan(int leftId, int rightId) const { return place(leftId) < place(rightId); }

private:
    QList<int> m_ids;
    QHash<int, int> m_places;
};
