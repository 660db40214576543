#include "wire/QueryParser.h"

#include <QStringView>

namespace wire {
namespace {

class Parser {
public:
    explicit Parser(const QString& text)
        : m_begin(text.constData()), m_at(m_begin), m_end(m_begin + text.size()) {}

    QueryReading run() {
        QueryReading reading;
        reading.ok = readQuery(reading.query);
        if (!reading.ok)
            reading.error = m_error;
        return reading;
    }

private:
    bool readQuery(ParsedQuery& query) {
        skipSeparators();
        if (m_at < m_end && isNameStart(*m_at)) {
            QString word;
            if (!readName(word))
                return false;
            if (word != QLatin1String("mutation"))
                return fail(QStringLiteral("A query starts with \"{\" or \"mutation{\"."), word.size());
            query.isMutation = true;
        }
        if (!expect('{') || !readName(query.operation))
            return false;
        query.position = position() - query.operation.size();
        skipSeparators();
        if (peek('(') && !(expect('(') && readArguments(query.arguments, ')', 1)))
            return false;
        skipSeparators();
        if (peek('{') && !(expect('{') && readFields(query.fields, 2)))
            return false;
        if (!expect('}'))
            return false;
        skipSeparators();
        return m_at == m_end || fail(QStringLiteral("The text goes on after the end of the query."));
    }

    bool readArguments(std::vector<QueryArgument>& arguments, char closing, int depth) {
        if (depth > maxQueryDepth)
            return fail(QStringLiteral("Brackets are nested too deep."));
        for (;;) {
            skipSeparators();
            if (peek(closing)) {
                ++m_at;
                return true;
            }
            QueryArgument argument;
            if (!readName(argument.name))
                return false;
            argument.position = position() - argument.name.size();
            if (!expect(':') || !readValue(argument.value, depth))
                return false;
            arguments.push_back(std::move(argument));
        }
    }

    bool readFields(std::vector<QueryField>& fields, int depth) {
        if (depth > maxQueryDepth)
            return fail(QStringLiteral("Brackets are nested too deep."));
        for (;;) {
            skipSeparators();
            if (peek('}')) {
                ++m_at;
                return true;
            }
            QueryField field;
            if (!readName(field.name))
                return false;
            field.position = position() - field.name.size();
            skipSeparators();
            if (peek('{') && !(expect('{') && readFields(field.fields, depth + 1)))
                return false;
            fields.push_back(std::move(field));
        }
    }

    bool readValue(QueryValue& value, int depth) {
        skipBlanks();
        if (m_at == m_end)
            return fail(QStringLiteral("A value is missing."));
        const QChar first = *m_at;
        if (first == QLatin1Char('"'))
            return readText(value);
        if (first == QLatin1Char('[')) {
            ++m_at;
            value.kind = QueryValue::Kind::List;
            return readList(value.list, depth + 1);
        }
        if (first == QLatin1Char('{')) {
            ++m_at;
            value.kind = QueryValue::Kind::Object;
            return readArguments(value.members, '}', depth + 1);
        }
        if (first == QLatin1Char('-') || isDigit(first))
            return readNumber(value);
        return readWord(value);
    }

    bool readList(std::vector<QueryValue>& list, int depth) {
        if (depth > maxQueryDepth)
            return fail(QStringLiteral("Brackets are nested too deep."));
        for (;;) {
            skipSeparators();
            if (peek(']')) {
                ++m_at;
                return true;
            }
            QueryValue value;
            if (!readValue(value, depth))
                return false;
            list.push_back(std::move(value));
        }
    }

    bool readText(QueryValue& value) {
        const QChar* opening = m_at++;
        value.kind = QueryValue::Kind::Text;
        const QChar* run = m_at;
        const auto flush = [&] { value.text.append(run, static_cast<int>(m_at - run)); };
        while (m_at < m_end) {
            if (*m_at == QLatin1Char('"')) {
                flush();
                ++m_at;
                return true;
            }
            if (*m_at != QLatin1Char('\\')) {
                ++m_at;
                continue;
            }
            flush();
            ++m_at;
            if (m_at == m_end)
                break;
            if (*m_at == QLatin1Char('n'))
                value.text.append(QLatin1Char('\n'));
            else if (*m_at == QLatin1Char('\\') || *m_at == QLatin1Char('"'))
                value.text.append(*m_at);
            else
                return fail(QStringLiteral("A backslash must stand before \\, \" or n."));
            run = ++m_at;
        }
        m_at = opening;
        return fail(QStringLiteral("The string that starts here has no end."));
    }

    bool readNumber(QueryValue& value) {
        const QChar* start = m_at;
        bool real = false;
        if (*m_at == QLatin1Char('-'))
            ++m_at;
        while (m_at < m_end && (isDigit(*m_at) || isRealPart(*m_at))) {
            real = real || isRealPart(*m_at);
            ++m_at;
        }
        const QString digits(start, static_cast<int>(m_at - start));
        bool ok = false;
        if (real) {
            value.kind = QueryValue::Kind::Real;
            value.real = digits.toDouble(&ok);
        } else {
            value.kind = QueryValue::Kind::Integer;
            value.integer = digits.toLongLong(&ok);
        }
        if (ok)
            return true;
        m_at = start;
        return fail(QStringLiteral("This is not a number."));
    }

    bool readWord(QueryValue& value) {
        const QChar* start = m_at;
        QString word;
        if (!readName(word))
            return false;
        if (word == QLatin1String("null"))
            return true;
        if (word == QLatin1String("true") || word == QLatin1String("false")) {
            value.kind = QueryValue::Kind::Boolean;
            value.integer = word == QLatin1String("true") ? 1 : 0;
            return true;
        }
        m_at = start;
        return fail(QStringLiteral("This is not a value."));
    }

    bool readName(QString& name) {
        skipBlanks();
        const QChar* start = m_at;
        if (m_at == m_end || !isNameStart(*m_at))
            return fail(QStringLiteral("A name is missing."));
        while (m_at < m_end && (isNameStart(*m_at) || isDigit(*m_at)))
            ++m_at;
        name = QString(start, static_cast<int>(m_at - start));
        return true;
    }

    bool expect(char wanted) {
        skipBlanks();
        if (!peek(wanted))
            return fail(QStringLiteral("\"%1\" is missing.").arg(QLatin1Char(wanted)));
        ++m_at;
        return true;
    }

    int position() const { return static_cast<int>(m_at - m_begin); }

    bool peek(char wanted) const { return m_at < m_end && *m_at == QLatin1Char(wanted); }

    void skipBlanks() {
        while (m_at < m_end && isBlank(*m_at))
            ++m_at;
    }

    void skipSeparators() {
        while (m_at < m_end && (isBlank(*m_at) || *m_at == QLatin1Char(',')))
            ++m_at;
    }

    bool fail(const QString& message, int back = 0) {
        m_error = {position() - back, message};
        return false;
    }

    static bool isBlank(QChar c) {
        return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
               c == QLatin1Char('\r');
    }
    static bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }
    static bool isRealPart(QChar c) {
        return c == QLatin1Char('.') || c == QLatin1Char('e') || c == QLatin1Char('E') ||
               c == QLatin1Char('+') || c == QLatin1Char('-');
    }
    static bool isNameStart(QChar c) {
        return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
               (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || c == QLatin1Char('_');
    }

    const QChar* m_begin;
    const QChar* m_at;
    const QChar* m_end;
    QueryError m_error;
};

}  // namespace

const QueryValue* QueryValue::member(const QString& name) const {
    for (const QueryArgument& candidate : members) {
        if (candidate.name == name)
            return &candidate.value;
    }
    return nullptr;
}

const QueryValue* ParsedQuery::argument(const QString& name) const {
    for (const QueryArgument& candidate : arguments) {
        if (candidate.name == name)
            return &candidate.value;
    }
    return nullptr;
}

QueryReading parseQuery(const QString& text) {
    return Parser(text).run();
}

}  // namespace wire
