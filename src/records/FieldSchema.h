#pragma once

#include "records/RecordFields.h"

#include <QByteArray>
#include <QColor>
#include <QDateTime>
#include <QHash>
#include <QJsonObject>
#include <QStringList>
#include <variant>
#include <vector>

/// Stands in a field table for a field whose value the record works out itself.
struct Computed {
    FieldType type;
};

/// Flags of a row. Without any, a field is read, sent and compared.
enum FieldFlag : unsigned {
    NotCompared = 1,
    LocalOnly = 2,
    NotSent = 4,  ///< stamped or joined by the service
};

/// One row of a record's field table. `State` is the struct that holds the values.
template <typename State> struct FieldRow {
    using Member = std::variant<int State::*, QString State::*, bool State::*, QColor State::*,
                                QDateTime State::*, QVariant State::*, Computed>;

    int number;
    QString wireName;
    QString roleName;
    Member member;
    QVariant defaultValue;
    unsigned flags = 0;
};

/// Conversions that don't depend on a record's type, so that they are compiled once.
namespace fields {

FieldType typeOf(const int&);
FieldType typeOf(const QString&);
FieldType typeOf(const bool&);
FieldType typeOf(const QColor&);
FieldType typeOf(const QDateTime&);
FieldType typeOf(const QVariant&);

/// Reads `json` into `value`. On failure `value` keeps what it had and the reason goes to the debug log.
bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, int& value);
bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QString& value);
bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, bool& value);
bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QColor& value);
bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QDateTime& value);
bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QVariant& value);

/// A field as an argument of a mutation: numbers and booleans as numbers, all else as text.
QString argument(const QString& wireName, const QVariant& value);

}  // namespace fields

/// What follows from a field table, worked out once for each record.
struct FieldLists {
    std::vector<FieldInfo> infos;
    QStringList queryFields;  ///< wire names of all fields that aren't local
    QHash<int, QByteArray> roleNames;
    std::vector<int> comparable;  ///< numbers of the fields that `equals` looks at
    std::vector<int> sent;        ///< numbers of the fields that are arguments

    void add(const FieldInfo& info);
};

template <typename State> FieldLists makeFieldLists(const std::vector<FieldRow<State>>& rows) {
    FieldLists lists;
    for (const FieldRow<State>& row : rows) {
        const FieldType type = std::visit(
            [](auto member) {
                if constexpr (std::is_same_v<decltype(member), Computed>) {
                    return member.type;
                } else {
                    static const State empty{};
                    return fields::typeOf(empty.*member);
                }
            },
            row.member);
        const bool local = row.flags & LocalOnly;
        lists.add({row.number, row.wireName, row.roleName, type, row.defaultValue,
                   !local && !(row.flags & NotCompared), local, !local && !(row.flags & NotSent)});
    }
    return lists;
}
