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

QString criteriaQuery(const QStringList& arguments) {
    const QStringList fields = Kerno::queryFields() + QStringList{QStringLiteral(" highlights{")} +
                               Highlight::queryFields() + QStringList{QStringLiteral("}")};
    return wire::read(wire::name::kernoQueryListWithHighlightsAndCriteria, arguments, fields);
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

QString QueryCriterion::queryText() const {
    const auto named = fieldNames.constFind(m_property);
    const bool isMetadataKey = named == fieldNames.constEnd();
    const QString fieldName = isMetadataKey ? QStringLiteral("value") : *named;
    const int keyId = isMetadataKey ? m_property.toInt() : -1;
    const QString value = m_value.toString();
    if (m_op.isEmpty() || value.isEmpty())
        return unconditionalQueryText();
    QStringList arguments{quoted(QStringLiteral("fieldName"), fieldName),
                          quoted(QStringLiteral("operator"), m_op), quoted(QStringLiteral("value"), value)};
    if (keyId != -1)
        arguments << QStringLiteral("keyId: %1").arg(keyId);
    return criteriaQuery(arguments);
}

QString QueryCriterion::unconditionalQueryText() {
    return criteriaQuery({});
}
