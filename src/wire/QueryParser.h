#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// Reads query text, the counterpart of QueryText.h. Grammar:
///
///     query    = [ "mutation" ] "{" name [ "(" arguments ")" ] [ "{" fields "}" ] "}"
///     argument = name ":" value              separated by blanks or commas
///     value    = number | string | "true" | "false" | "null" | "[" values "]" | "{" arguments "}"
///     field    = name [ "{" fields "}" ]     separated by blanks or commas
///
/// A string stands in double quotes; backslash escapes a backslash, a double quote, or n for a line feed.
namespace wire {

struct QueryArgument;

/// A value in a query text. Only the member that belongs to `kind` is set.
struct QueryValue {
    enum class Kind { Null, Integer, Real, Boolean, Text, List, Object };

    Kind kind = Kind::Null;
    qint64 integer = 0;  ///< also 0 or 1 for a boolean
    double real = 0;
    QString text;
    std::vector<QueryValue> list;
    std::vector<QueryArgument> members;

    /// The member of an object by name, or null.
    const QueryValue* member(const QString& name) const;
};

struct QueryArgument {
    QString name;
    QueryValue value;
    int position = 0;  ///< of the name, in UTF-16 units from the start of the text
};

/// A requested field with the fields inside it.
struct QueryField {
    QString name;
    std::vector<QueryField> fields;
    int position = 0;
};

struct ParsedQuery {
    bool isMutation = false;
    QString operation;
    std::vector<QueryArgument> arguments;
    std::vector<QueryField> fields;
    int position = 0;  ///< of the operation's name

    /// The argument's value by name, or null when it wasn't given.
    const QueryValue* argument(const QString& name) const;
};

/// Where and why a text can't be read.
struct QueryError {
    int position = 0;  ///< UTF-16 units from the start of the text
    QString message;   ///< one sentence, without the position
};

struct QueryReading {
    bool ok = false;
    ParsedQuery query;
    QueryError error;
};

/// Brackets may nest this deep; more is refused, so that no text can exhaust the stack.
constexpr int maxQueryDepth = 64;

/// Never throws; the time is linear in the length of the text.
QueryReading parseQuery(const QString& text);

}  // namespace wire
