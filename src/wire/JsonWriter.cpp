#include "wire/JsonWriter.h"

#include <QLocale>
#include <array>
#include <cmath>

namespace {

/// The byte order mark is escaped because readers drop it at the start of a string.
bool needsEscape(ushort unit) {
    return unit < 0x20 || unit == '"' || unit == '\\' || (unit >= 0xD800 && unit < 0xE000) || unit == 0xFEFF;
}

}  // namespace

JsonWriter& JsonWriter::beginObject() {
    separate();
    m_bytes += '{';
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::endObject() {
    m_bytes += '}';
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::beginArray() {
    separate();
    m_bytes += '[';
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::endArray() {
    m_bytes += ']';
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::key(const QString& name) {
    separate();
    append(name);
    m_bytes += ':';
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::key(const QByteArray& json) {
    separate();
    m_bytes += json;
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::value(const QString& text) {
    separate();
    append(text);
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::value(qint64 number) {
    return raw(QByteArray::number(number));
}

JsonWriter& JsonWriter::value(double number) {
    if (!std::isfinite(number))
        return null();
    return raw(QByteArray::number(number, 'g', QLocale::FloatingPointShortest));
}

JsonWriter& JsonWriter::value(bool truth) {
    return raw(truth ? QByteArrayLiteral("true") : QByteArrayLiteral("false"));
}

JsonWriter& JsonWriter::null() {
    return raw(QByteArrayLiteral("null"));
}

JsonWriter& JsonWriter::raw(const QByteArray& json) {
    separate();
    m_bytes += json;
    m_needsComma = true;
    return *this;
}

QByteArray JsonWriter::take() {
    QByteArray taken;
    taken.swap(m_bytes);
    m_needsComma = false;
    return taken;
}

void JsonWriter::separate() {
    if (m_needsComma)
        m_bytes += ',';
}

void JsonWriter::append(const QString& text) {
    m_bytes += '"';
    // Most texts of a project's lists are short and plain, and a conversion costs more than they do.
    std::array<char, 64> plain;
    const ushort* const units = text.utf16();
    const int most = qMin(text.size(), static_cast<int>(plain.size()));
    int at = 0;
    for (; at < most && units[at] < 0x80 && !needsEscape(units[at]); ++at)
        plain[static_cast<size_t>(at)] = static_cast<char>(units[at]);
    m_bytes.append(plain.data(), at);
    const ushort* unit = units + at;
    const ushort* const end = units + text.size();
    const ushort* run = unit;
    const auto flush = [&] {
        if (unit > run)
            m_bytes += QString::fromRawData(reinterpret_cast<const QChar*>(run), static_cast<int>(unit - run))
                           .toUtf8();
    };
    for (; unit < end; ++unit) {
        if (!needsEscape(*unit))
            continue;
        if (QChar::isHighSurrogate(*unit) && unit + 1 < end && QChar::isLowSurrogate(unit[1])) {
            ++unit;
            continue;
        }
        flush();
        run = unit + 1;
        switch (*unit) {
        case '"':
            m_bytes += "\\\"";
            break;
        case '\\':
            m_bytes += "\\\\";
            break;
        case '\n':
            m_bytes += "\\n";
            break;
        case '\t':
            m_bytes += "\\t";
            break;
        case '\r':
            m_bytes += "\\r";
            break;
        default:
            m_bytes += "\\u" + QByteArray::number(*unit, 16).rightJustified(4, '0');
            break;
        }
    }
    flush();
    m_bytes += '"';
}
