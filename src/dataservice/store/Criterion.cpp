#include "store/Criterion.h"

#include "store/Database.h"
#include "store/Scalar.h"
#include "store/Table.h"

#include <QHash>
#include <cmath>

namespace {

using Operator = Criterion::Operator;

/// `order` is negative, zero or positive, as the left side is less, equal or greater.
bool holds(Operator op, int order) {
    switch (op) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::LessOrEqual:
        return order <= 0;
    case Operator::Greater:
        return order > 0;
    case Operator::GreaterOrEqual:
        return order >= 0;
    }
    return false;
}

template <typename T> int orderOf(const T& left, const T& right) {
    return left < right ? -1 : (right < left ? 1 : 0);
}

std::optional<double> asNumber(const QString& text) {
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<Operator> operatorOf(const QString& text) {
    static const QHash<QString, Operator> operators{
        {QStringLiteral("="), Operator::Equal},   {QStringLiteral("!="), Operator::NotEqual},
        {QStringLiteral("<"), Operator::Less},    {QStringLiteral("<="), Operator::LessOrEqual},
        {QStringLiteral(">"), Operator::Greater}, {QStringLiteral(">="), Operator::GreaterOrEqual}};
    const auto found = operators.constFind(text);
    return found == operators.constEnd() ? std::nullopt : std::optional<Operator>(*found);
}

}  // namespace

bool compareValues(const QVariant& stored, Operator op, const QString& typed) {
    const QString text = stored.toString();
    const std::optional<double> left = asNumber(text);
    const std::optional<double> right = asNumber(typed);
    if (left && right)
        return holds(op, orderOf(*left, *right));
    return holds(op, QString::compare(text, typed, Qt::CaseInsensitive));
}

Outcome Criterion::read(Database& database, const QString& fieldName, const QString& op, const QString& value,
                        qint64 keyId, Criterion* criterion) {
    static const QHash<QString, Field> fields{{QStringLiteral("highlightAuthor"), Field::HighlightAuthor},
                                              {QStringLiteral("kernoAuthor"), Field::KernoAuthor},
                                              {QStringLiteral("highlightDate"), Field::HighlightDate},
                                              {QStringLiteral("kernoDate"), Field::KernoDate},
                                              {QStringLiteral("sourceId"), Field::SourceId},
                                              {QStringLiteral("level"), Field::Level},
                                              {QStringLiteral("value"), Field::Value}};
    const auto field = fields.constFind(fieldName);
    if (field == fields.constEnd())
        return Outcome::refused(QStringLiteral("There is no criterion named \"%1\".").arg(fieldName));
    const std::optional<Operator> comparison = operatorOf(op);
    if (!comparison)
        return Outcome::refused(QStringLiteral("There is no operator \"%1\".").arg(op));
    const bool isAuthor = *field == Field::HighlightAuthor || *field == Field::KernoAuthor;
    if (isAuthor && *comparison != Operator::Equal && *comparison != Operator::NotEqual)
        return Outcome::refused(
            QStringLiteral("Authors are equal or not; \"%1\" doesn't compare them.").arg(op));
    criterion->m_field = *field;
    criterion->m_operator = *comparison;
    criterion->m_value = value;
    criterion->m_date = QDate::fromString(value.trimmed(), Qt::ISODate);
    criterion->m_number = asNumber(value);
    if (*field == Field::Level)
        return criterion->readGroups(database);
    if (*field == Field::Value)
        return criterion->readValues(database, keyId);
    return Outcome::done();
}

Outcome Criterion::readGroups(Database& database) {
    Statement row = database.statement(QStringLiteral("SELECT \"kernoId\", \"groupId\" FROM ") +
                                       tableOf(wire::Record::KernoGroup).name);
    if (row.run()) {
        while (row.next())
            m_groups[row.value(0).toLongLong()].insert(row.value(1).toLongLong());
    }
    return row.outcome();
}

Outcome Criterion::readValues(Database& database, qint64 keyId) {
    Statement row =
        database.statement(QStringLiteral("SELECT l.\"sourceId\", v.\"value\" FROM ") +
                           tableOf(wire::Record::SourceMetadata).name + QStringLiteral(" l JOIN ") +
                           tableOf(wire::Record::SourceMetadataValue).name +
                           QStringLiteral(" v ON v.\"id\" = l.\"valueId\" WHERE l.\"keyId\" = ?"));
    row.bind(keyId);
    // "Not equal" asks for sources that have no equal value, so the equal ones are looked for.
    const Operator searched = m_operator == Operator::NotEqual ? Operator::Equal : m_operator;
    if (row.run()) {
        while (row.next()) {
            if (compareValues(scalar::fromJson(row.value(1).toString()), searched, m_value))
                m_sources.insert(row.value(0).toLongLong());
        }
    }
    return row.outcome();
}

bool Criterion::datePasses(const QString& timestamp) const {
    const QDate date = QDate::fromString(timestamp.left(10), Qt::ISODate);
    if (!date.isValid() || !m_date.isValid())
        return m_operator == Operator::NotEqual;
    return holds(m_operator, orderOf(date, m_date));
}

bool Criterion::numberPasses(qint64 number) const {
    if (!m_number)
        return m_operator == Operator::NotEqual;
    return holds(m_operator, orderOf(static_cast<double>(number), *m_number));
}

bool Criterion::groupsPass(qint64 kernoId) const {
    const auto groups = m_groups.find(kernoId);
    const bool equalSearched = m_operator == Operator::NotEqual;
    bool found = false;
    if (groups != m_groups.end() && m_number) {
        for (qint64 group : groups->second) {
            found = found || holds(equalSearched ? Operator::Equal : m_operator,
                                   orderOf(static_cast<double>(group), *m_number));
        }
    }
    return found != equalSearched;
}

bool Criterion::kernoPasses(qint64 kernoId, const QString& author, const QString& timestamp) const {
    if (m_field == Field::KernoAuthor)
        return holds(m_operator, orderOf(author, m_value));
    if (m_field == Field::KernoDate)
        return datePasses(timestamp);
    return m_field != Field::Level || groupsPass(kernoId);
}

bool Criterion::highlightPasses(qint64 sourceId, const QString& author, const QString& timestamp) const {
    switch (m_field) {
    case Field::HighlightAuthor:
        return holds(m_operator, orderOf(author, m_value));
    case Field::HighlightDate:
        return datePasses(timestamp);
    case Field::SourceId:
        return numberPasses(sourceId);
    case Field::Value:
        return (m_sources.count(sourceId) > 0) != (m_operator == Operator::NotEqual);
    default:
        return true;
    }
}
