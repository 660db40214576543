#pragma once

#include "records/Source.h"

#include <QList>
#include <QSet>
#include <QVariantList>

namespace Search {

enum class Comparison { Equal, NotEqual, Greater, GreaterOrEqual, Less, LessOrEqual };

struct PropertyCriterion {
    int keyId = 0;
    Comparison comparison = Comparison::Equal;
    QVariant value;
};

struct KernoCriterion {
    int kernoId = 0;
    bool excluded = false;  ///< "!="
};

/// What limits a search beside its term.
struct Criteria {
    QList<PropertyCriterion> properties;
    QList<KernoCriterion> kernos;
    QSet<QString> includedAuthors;
    QSet<QString> excludedAuthors;
};

/// Reads the rows of the search panel: maps with "author", "kerno", "property", "value" and "operator". A row
/// that can't be read is dropped, as is one for a group. The same kerno with "=" and "!=" is no criterion.
Criteria readCriteria(const QVariantList& rows);

/// How QVariant compares them: numbers as numbers, two texts as texts.
bool compares(const QVariant& value, Comparison comparison, const QVariant& with);

/// Whether the author of a source is asked for.
bool authorPasses(const QString& author, const Criteria& criteria);

/// Whether a source with those values passes; `valuesOf` gives the values for a key. All criteria under
/// "and", otherwise one of them. A source without a value passes "!=".
template <typename ValuesOf>
bool propertiesPass(const QList<PropertyCriterion>& criteria, bool isAnd, const ValuesOf& valuesOf) {
    for (const PropertyCriterion& criterion : criteria) {
        const QVariantList values = valuesOf(criterion.keyId);
        bool passes = values.isEmpty() && criterion.comparison == Comparison::NotEqual;
        for (const QVariant& value : values)
            passes = passes || compares(value, criterion.comparison, criterion.value);
        if (passes != isAnd)
            return passes;
    }
    return isAnd;
}

}  // namespace Search
