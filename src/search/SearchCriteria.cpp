#include "search/SearchCriteria.h"

#include <algorithm>
#include <optional>

namespace Search {

namespace {

std::optional<Comparison> comparisonOf(const QString& text) {
    static const QHash<QString, Comparison> comparisons{
        {QStringLiteral("="), Comparison::Equal},           {QStringLiteral("=="), Comparison::Equal},
        {QStringLiteral("!="), Comparison::NotEqual},       {QStringLiteral(">"), Comparison::Greater},
        {QStringLiteral(">="), Comparison::GreaterOrEqual}, {QStringLiteral("<"), Comparison::Less},
        {QStringLiteral("<="), Comparison::LessOrEqual}};
    const auto found = comparisons.constFind(text);
    return found == comparisons.constEnd() ? std::nullopt : std::optional(found.value());
}

bool isIdentity(Comparison comparison) {
    return comparison == Comparison::Equal || comparison == Comparison::NotEqual;
}

void addKerno(QList<KernoCriterion>& list, const KernoCriterion& added) {
    const auto same = std::find_if(list.begin(), list.end(), [&added](const KernoCriterion& criterion) {
        return criterion.kernoId == added.kernoId;
    });
    if (same == list.end())
        list.append(added);
    else if (same->excluded != added.excluded)
        list.erase(same);
}

void addProperty(QList<PropertyCriterion>& list, const PropertyCriterion& added) {
    const bool known = std::any_of(list.cbegin(), list.cend(), [&added](const PropertyCriterion& criterion) {
        return criterion.keyId == added.keyId && criterion.comparison == added.comparison &&
               criterion.value == added.value;
    });
    if (!known)
        list.append(added);
}

// Negative, 0 or positive. QVariant orders texts without regard to case, but holds only identical ones equal.
int ordered(const QVariant& a, const QVariant& b) {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return a < b ? -1 : a > b ? 1 : 0;
    QT_WARNING_POP
}

}  // namespace

Criteria readCriteria(const QVariantList& rows) {
    Criteria criteria;
    for (const QVariant& item : rows) {
        const QVariantMap row = item.toMap();
        const std::optional<Comparison> comparison =
            comparisonOf(row.value(QStringLiteral("operator")).toString());
        if (!comparison)
            continue;
        const QVariant value = row.value(QStringLiteral("value"));
        const int keyId = row.value(QStringLiteral("property")).toInt();
        if (row.value(QStringLiteral("kerno")).toBool()) {
            if (isIdentity(*comparison) && value.toInt() > 0)
                addKerno(criteria.kernos, {value.toInt(), *comparison == Comparison::NotEqual});
        } else if (keyId > 0) {
            addProperty(criteria.properties, {keyId, *comparison, value});
        } else if (row.value(QStringLiteral("author")).toBool() && isIdentity(*comparison)) {
            (*comparison == Comparison::Equal ? criteria.includedAuthors : criteria.excludedAuthors)
                .insert(value.toString());
        }
    }
    return criteria;
}

bool compares(const QVariant& value, Comparison comparison, const QVariant& with) {
    switch (comparison) {
    case Comparison::Equal:
        return value == with;
    case Comparison::NotEqual:
        return value != with;
    case Comparison::Greater:
        return ordered(value, with) > 0;
    case Comparison::GreaterOrEqual:
        return ordered(value, with) >= 0;
    case Comparison::Less:
        return ordered(value, with) < 0;
    case Comparison::LessOrEqual:
        return ordered(value, with) <= 0;
    }
    return false;
}

bool authorPasses(const QString& author, const Criteria& criteria) {
    return (criteria.includedAuthors.isEmpty() || criteria.includedAuthors.contains(author)) &&
           !criteria.excludedAuthors.contains(author);
}

}  // namespace Search
