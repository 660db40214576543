#pragma once

#include "merge/ProjectRecords.h"

#include <QHash>

/// Changes of ids with all references to them, for all records of a kind at once.
namespace idchanges {

/// From each id of a kind to its new one. Several may become one, and then all that referred to them refers
/// to that one.
using IdMap = QHash<int, int>;

// Each gives the records of its kind their new ids, and follows the references. What refers to a record that
// the map doesn't know refers to nothing; it is taken out, because with new ids it would become somebody
// else's. A kerno whose parent is unknown becomes one without a parent.

void changeSources(ProjectRecords& records, const IdMap& ids);
void changeMetadataKeys(ProjectRecords& records, const IdMap& ids);
void changeMetadataValues(ProjectRecords& records, const IdMap& ids);
void changeQuestions(ProjectRecords& records, const IdMap& ids);
void changeKernos(ProjectRecords& records, const IdMap& ids);
void changeGroups(ProjectRecords& records, const IdMap& ids);

/// Numbers the records 1, 2, 3, ... in list order, by kind, and all that refers to them.
void renumber(ProjectRecords& records);

/// Makes every kerno that is its own ancestor one without a parent.
void breakKernoCircles(QList<Kerno>& kernos);

}  // namespace idchanges
