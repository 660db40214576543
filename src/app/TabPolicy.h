#pragma once

#include <QList>

/// Which sources stand as tabs. Lists of ids in the order of the tabs.
namespace tabs {

constexpr int maxCurrentTabs = 3;

/// The tabs when a project is shown anew: the remembered ones that exist, filled up from the sources' own
/// order.
QList<int> restored(const QList<int>& remembered, const QList<int>& existing);

/// With a source in front that was no tab; the last one goes where there are too many.
QList<int> withFirst(const QList<int>& ids, int id);

/// Of too many tabs the first stay, and the last.
QList<int> trimCurrentIdsIfNeeded(QList<int> ids);

/// Whether somebody's new source becomes a tab: one's own always, another's only while there is room.
bool takesNew(const QList<int>& ids, bool own);

}  // namespace tabs
