#pragma once

#include <QString>
#include <QVariant>
#include <QVariantMap>

/// One row of a query, read from the map that the query panel makes of it.
class QueryCriterion {
public:
    explicit QueryCriterion(const QVariantMap& map);

    /// A row that isn't valid takes no part in its query.
    bool isValid() const { return m_valid; }

    QString op() const { return m_op; }
    /// 1 makes the row a member of an inner group.
    int level() const { return m_level; }
    /// How the row is joined to the next one.
    bool isAnd() const { return m_isAnd; }
    /// Whether the operator compares by order, not by equality.
    bool isOrderedComparison() const { return m_isOrderedComparison; }
    /// A metadata key's id or a property code, as text.
    QString property() const { return m_property; }
    QVariant value() const { return m_value; }

    /// The text of the read that answers this row alone. The value goes in as it stands.
    QString queryText() const;

    /// The text of the read without a condition: all kernos with all their highlights.
    static QString unconditionalQueryText();

    /// The text of one read that answers all rows. Empty when they must be asked one by one: too many, or a
    /// value that could break out of its row, and break its own read alone.
    static QString commonQueryText(const QList<QueryCriterion>& rows);

private:
    /// None for a row that all highlights pass. The value goes in as it stands.
    QStringList arguments() const;

    QString m_op;
    int m_level = 0;
    bool m_isAnd = false;
    bool m_valid = false;
    bool m_isOrderedComparison = false;
    QString m_property;
    QVariant m_value;
};
