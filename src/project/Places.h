#pragma once

#include "records/Highlight.h"

#include <QHash>
#include <QList>
#include <QPair>

class QuestionModel;
class SourceModel;

/// A source and a question: where an answer lies.
using Place = QPair<int, int>;

/// The highlights by place, each list in the one order of highlights, equal ones by id.
QHash<Place, QList<Highlight>> byPlace(QList<Highlight> highlights);

/// Every pair of a source and a question, in the order of the lists.
QList<Place> allPlaces(const SourceModel& sources, const QuestionModel& questions);
