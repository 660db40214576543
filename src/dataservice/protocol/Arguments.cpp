#include "protocol/Arguments.h"

#include "store/Scalar.h"

#include <limits>

namespace {

using wire::QueryArgument;
using Kind = wire::QueryValue::Kind;

bool fitsId(qint64 number) {
    return number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max();
}

QString wrongType(const QString& name, const QString& wanted) {
    return QStringLiteral("\"%1\" has to be %2.").arg(name, wanted);
}

QVariant scalarValue(const wire::QueryValue& value) {
    switch (value.kind) {
    case Kind::Integer:
        return value.integer;
    case Kind::Real:
        return value.real;
    case Kind::Boolean:
        return value.integer != 0;
    case Kind::Text:
        return value.text;
    default:
        return {};
    }
}

}  // namespace

const QueryArgument* Arguments::find(const QString& name, bool required) {
    m_known.insert(name);
    for (const QueryArgument& argument : m_query.arguments) {
        if (argument.name == name)
            return &argument;
    }
    if (required)
        faults.push_back({QStringLiteral("The argument \"%1\" is missing.").arg(name), m_query.position});
    return nullptr;
}

qint64 Arguments::integer(const QString& name) {
    const QueryArgument* argument = find(name, true);
    return argument ? integer(name, 0) : 0;
}

qint64 Arguments::integer(const QString& name, qint64 fallback) {
    const QueryArgument* argument = find(name, false);
    if (!argument)
        return fallback;
    if (argument->value.kind == Kind::Integer && fitsId(argument->value.integer))
        return argument->value.integer;
    faults.push_back({wrongType(name, QStringLiteral("a whole number")), argument->position});
    return fallback;
}

QString Arguments::text(const QString& name) {
    const QueryArgument* argument = find(name, true);
    return argument ? text(name, {}) : QString();
}

QString Arguments::text(const QString& name, const QString& fallback) {
    const QueryArgument* argument = find(name, false);
    if (!argument)
        return fallback;
    if (argument->value.kind == Kind::Text)
        return argument->value.text;
    faults.push_back({wrongType(name, QStringLiteral("a text")), argument->position});
    return fallback;
}

bool Arguments::boolean(const QString& name, bool fallback) {
    const QueryArgument* argument = find(name, false);
    if (!argument)
        return fallback;
    if (argument->value.kind == Kind::Boolean)
        return argument->value.integer != 0;
    faults.push_back({wrongType(name, QStringLiteral("true or false")), argument->position});
    return fallback;
}

std::vector<qint64> Arguments::ids(const QString& name) {
    std::vector<qint64> numbers;
    const QueryArgument* argument = find(name, true);
    if (!argument)
        return numbers;
    bool readable = true;
    if (argument->value.kind == Kind::List) {
        for (const wire::QueryValue& value : argument->value.list) {
            readable = readable && value.kind == Kind::Integer;
            numbers.push_back(value.integer);
        }
    } else if (argument->value.kind == Kind::Text) {
        for (const QString& part : argument->value.text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            bool ok = false;
            numbers.push_back(part.trimmed().toInt(&ok));
            readable = readable && ok;
        }
    } else {
        readable = false;
    }
    if (!readable)
        faults.push_back({wrongType(name, QStringLiteral("a list of whole numbers")), argument->position});
    return numbers;
}

std::vector<const std::vector<QueryArgument>*> Arguments::records(const QString& name) {
    std::vector<const std::vector<QueryArgument>*> found;
    const QueryArgument* argument = find(name, true);
    if (!argument)
        return found;
    if (argument->value.kind != Kind::List) {
        faults.push_back({wrongType(name, QStringLiteral("a list of records")), argument->position});
        return found;
    }
    for (const wire::QueryValue& value : argument->value.list) {
        if (value.kind == Kind::Object)
            found.push_back(&value.members);
        else
            faults.push_back({wrongType(name, QStringLiteral("a list of records")), argument->position});
    }
    return found;
}

bool Arguments::finish() {
    for (const QueryArgument& argument : m_query.arguments) {
        if (!m_known.contains(argument.name))
            faults.push_back(
                {QStringLiteral("There is no argument \"%1\".").arg(argument.name), argument.position});
    }
    return faults.empty();
}

QVariant columnValue(const Column& column, const QueryArgument& argument, std::vector<Fault>* faults) {
    const wire::QueryValue& value = argument.value;
    QString wanted;
    switch (column.type) {
    case FieldType::Integer:
        if (value.kind == Kind::Integer && fitsId(value.integer))
            return value.integer;
        wanted = QStringLiteral("a whole number");
        break;
    case FieldType::Boolean:
        if (value.kind == Kind::Boolean || value.kind == Kind::Integer)
            return value.integer != 0;
        if (value.kind == Kind::Text &&
            (value.text == QLatin1String("true") || value.text == QLatin1String("false")))
            return value.text == QLatin1String("true");
        wanted = QStringLiteral("true or false");
        break;
    case FieldType::Text:
    case FieldType::Color:
    case FieldType::Timestamp:
        if (value.kind == Kind::Text)
            return value.text;
        if (value.kind == Kind::Null)
            return QStringLiteral("");
        wanted = QStringLiteral("a text");
        break;
    case FieldType::Scalar:
        if (value.kind != Kind::List && value.kind != Kind::Object)
            return scalar::toJson(scalarValue(value));
        wanted = QStringLiteral("a text or a number");
        break;
    }
    faults->push_back({wrongType(column.name, wanted), argument.position});
    return {};
}

RecordValues recordValues(const Table& table, const std::vector<QueryArgument>& arguments, int position,
                          std::vector<Fault>* faults) {
    RecordValues values(table.columns.size());
    for (const QueryArgument& argument : arguments) {
        const int place = table.indexOf(argument.name);
        if (place < 0 || !table.columns[static_cast<size_t>(place)].sent) {
            faults->push_back(
                {QStringLiteral("There is no argument \"%1\".").arg(argument.name), argument.position});
            continue;
        }
        QVariant& value = values[static_cast<size_t>(place)];
        if (value.isValid())
            faults->push_back(
                {QStringLiteral("\"%1\" is given twice.").arg(argument.name), argument.position});
        value = columnValue(table.columns[static_cast<size_t>(place)], argument, faults);
    }
    if (!values[static_cast<size_t>(table.idColumn)].isValid() && faults->empty())
        faults->push_back({QStringLiteral("The argument \"%1\" is missing.").arg(table.id().name), position});
    return values;
}

std::vector<int> requestedColumns(const Table& table, const std::vector<wire::QueryField>& fields,
                                  std::vector<Fault>* faults, const QString& nested) {
    std::vector<int> columns;
    for (const wire::QueryField& field : fields) {
        if (!nested.isEmpty() && field.name == nested)
            continue;
        const int place = table.indexOf(field.name);
        if (place < 0)
            faults->push_back({QStringLiteral("There is no field \"%1\".").arg(field.name), field.position});
        else if (!field.fields.empty())
            faults->push_back({QStringLiteral("\"%1\" has no fields.").arg(field.name), field.position});
        else
            columns.push_back(place);
    }
    if (columns.empty()) {
        for (size_t i = 0; i < table.columns.size(); ++i)
            columns.push_back(static_cast<int>(i));
    }
    return columns;
}
