#pragma once

#include "store/Outcome.h"

#include <QDate>
#include <QSet>
#include <QString>
#include <QVariant>
#include <map>
#include <optional>
#include <set>

class Database;

/// One condition that highlights, or the kernos that they belong to, have to meet. Without a field it is met
/// by all.
class Criterion {
public:
    enum class Operator { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual };

    Criterion() = default;

    /// Reads the condition and what it needs of the project. `Refused` with a sentence when it makes no
    /// sense.
    static Outcome read(Database& database, const QString& fieldName, const QString& op, const QString& value,
                        qint64 keyId, Criterion* criterion);

    bool kernoPasses(qint64 kernoId, const QString& author, const QString& timestamp) const;
    bool highlightPasses(qint64 sourceId, const QString& author, const QString& timestamp) const;
    /// Whether `highlightPasses` looks at the author or the timestamp.
    bool readsTextsOfHighlights() const {
        return m_field == Field::HighlightAuthor || m_field == Field::HighlightDate;
    }

private:
    enum class Field { None, HighlightAuthor, KernoAuthor, HighlightDate, KernoDate, SourceId, Level, Value };

    Outcome readGroups(Database& database);
    Outcome readValues(Database& database, qint64 keyId);
    bool datePasses(const QString& timestamp) const;
    bool numberPasses(qint64 number) const;
    bool groupsPass(qint64 kernoId) const;

    Field m_field = Field::None;
    Operator m_operator = Operator::Equal;
    QString m_value;
    QDate m_date;
    std::optional<double> m_number;
    std::map<qint64, std::set<qint64>> m_groups;  ///< groups by kerno
    std::set<qint64> m_sources;                   ///< sources with a value for which the comparison holds
};

/// Whether a comparison holds between a stored value and a typed one: as numbers when both are, otherwise as
/// texts without regard to case.
bool compareValues(const QVariant& stored, Criterion::Operator op, const QString& typed);
