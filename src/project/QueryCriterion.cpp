#include "project/QueryCriterion.h"

#include "records/Highlight.h"
#include "records/Kerno.h"
#include "wire/QueryText.h"

#include <QHash>

namespace {

const QStringList operators{QStringLiteral("="),  QStringLiteral("!="), QStringLiteral("<"),
                            QStringLiteral("<="), QStringLiteral(">"),  QStringLiteral(">=")};

/// Words of the wire for the properties that aren't metadata keys.
const QHash<QString, QString> fieldNames{{QStringLiteral("HA"), QStringLiteral("highlightAuthor")},
                                         {QStringLiteral("QA"), QStringLiteral("kernoAuthor")},
                                         {QStringLiteral("HD"), QStringLiteral("highlightDate")},
                                         {QStringLiteral("QD"), QStringLiteral("kernoDate")},
                                         {QStringLiteral("GR"), QStringLiteral("level")},
                                         {QStringLiteral("ST"), QStringLiteral("sourceId")}};

QString quoted(const QString& name, const QString& text) {
    return name + QStringLiteral(": \"") + text + QLatin1Char('"');
}

QString criteriaQuery(const QString& operation, const QStringList& arguments) {
    const QStringList fields = Kerno::queryFields() + QStringList{QStringLiteral(" highlights{")} +
                               Highlight::queryFields() + QStringList{QStringLiteral("}")};
    return wire::read(operation, arguments, fields);
}

}  // namespace

QueryCriterion::QueryCriterion(const QVariantMap& map) {
    m_op = map.value(QStringLiteral("operator")).toString();
    const int place = operators.indexOf(m_op);
    if (place < 0)
        return;
    m_isOrderedComparison = place > 1;
    const QString junction = map.value(QStringLiteral("junctionOperator")).toString().toUpper();
    m_isAnd = junction == QLatin1String(" AND");
    if (!m_isAnd && junction != QLatin1String(" OR"))
        return;
    m_level = map.value(QStringLiteral("level")).toInt();
    if (m_level < 2) {
        m_property = map.value(QStringLiteral("property")).toString();
        m_value = map.value(QStringLiteral("value"));
    }
    m_valid = !m_property.isEmpty() && m_value.isValid();
}

QStringList QueryCriterion::arguments() const {
    const auto named = fieldNames.constFind(m_property);
    const bool isMetadataKey = named == fieldNames.constEnd();
    const QString fieldName = isMetadataKey ? QStringLiteral("value") : *named;
    const int keyId = isMetadataKey ? m_property.toInt() : -1;
    const QString value = m_value.toString();
    if (m_op.isEmpty() || value.isEmpty())
        return {};
    QStringList arguments{quoted(QStringLiteral("fieldName"), fieldName),
                          quoted(QStringLiteral("operator"), m_op), quoted(QStringLiteral("value"), value)};
    if (keyId != -1)
        arguments << QStringLiteral("keyId: %1").arg(keyId);
    return arguments;
}

QString QueryCriterion::queryText() const {
    return criteriaQuery(wire::name::kernoQueryListWithHighlightsAndCriteria, arguments());
}

QString QueryCriterion::unconditionalQueryText() {
    return criteriaQuery(wire::name::kernoQueryListWithHighlightsAndCriteria, {});
}

QString QueryCriterion::commonQueryText(const QList<QueryCriterion>& rows) {
    QStringList records;
    for (const QueryCriterion& row : rows) {
        const QString value = row.m_value.toString();
        if (value.contains(QLatin1Char('"')) || value.contains(QLatin1Char('\\')))
            return {};
        records << QLatin1Char('{') + row.arguments().join(QLatin1Char(' ')) + QLatin1Char('}');
    }
    if (records.size() > wire::maxCriteria)
        return {};
    return criteriaQuery(wire::name::kernoQueryListWithHighlightsAndManyCriteria,
                         {QStringLiteral("criteria: [") + records.join(QLatin1Char(',')) + QLatin1Char(']')});
}
