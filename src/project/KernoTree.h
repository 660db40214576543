#pragma once

#include "records/Kerno.h"

#include <QList>
#include <QSet>
#include <QVariantList>

/// What is asked of a list of kernos as the tree that their parent ids make. Ids below 1 are no parents.
namespace kernotree {

QList<Kerno> without(const QList<Kerno>& kernos, const QSet<int>& ids);
QList<Kerno> topLevel(const QList<Kerno>& kernos);

/// All kernos below one, nearer ones first; each once, even if the parents run in a circle.
QList<Kerno> descendants(const QList<Kerno>& kernos, int parentId);

/// The ids above 0 among parent ids, each once, in the order in which they come.
QVariantList parents(const QVariantList& parentIds);

/// The ids sorted by a field, given by its number; equal ones keep their order.
QVariantList sortedIds(QList<Kerno> kernos, int field, bool descending);

}  // namespace kernotree
