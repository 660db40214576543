#include "export/CsvText.h"

namespace csv {

namespace {

constexpr int blockSize = 32;

/// Of what most of a text doesn't consist: more than one byte, or not as it is.
bool isOdd(ushort unit) {
    return (unit >= 0x80) | (unit == '"') | (unit == '\f');
}

bool isBrokenApostrophe(const QChar* at, const QChar* end) {
    return end - at >= 3 && at[0] == QChar(0xE2) && at[1] == QChar(0x80) && at[2] == QChar(0x99);
}

/// Adds characters up to the first that is odd; gives where that stands.
const QChar* appendPlain(QByteArray& utf8, const QChar* at, const QChar* end) {
    int size = utf8.size();
    utf8.resize(size + static_cast<int>(end - at));
    char* const bytes = utf8.data();
    // Blocks are looked at as a whole, which a processor does at once.
    while (end - at >= blockSize) {
        bool odd = false;
        for (int i = 0; i < blockSize; ++i) {
            odd |= isOdd(at[i].unicode());
            bytes[size + i] = static_cast<char>(at[i].unicode());
        }
        if (odd)
            break;
        at += blockSize;
        size += blockSize;
    }
    for (; at != end && !isOdd(at->unicode()); ++at)
        bytes[size++] = static_cast<char>(at->unicode());
    utf8.resize(size);
    return at;
}

/// Up to where characters of several bytes follow each other.
const QChar* wideEnd(const QChar* at, const QChar* end) {
    while (at != end && at->unicode() >= 0x80 && !isBrokenApostrophe(at, end))
        ++at;
    return at;
}

}  // namespace

void appendQuoted(QByteArray& utf8, const QString& text) {
    appendQuoted(utf8, text, 0, text.size());
}

void appendQuoted(QByteArray& utf8, const QString& text, int start, int length) {
    const int from = qBound(0, start, text.size());
    const int size = length < 0 ? text.size() - from : qMin(length, text.size() - from);
    const QChar* at = text.constData() + from;
    const QChar* const end = at + size;
    // Room that was reserved stays when the field turns out shorter.
    if (utf8.capacity() - utf8.size() < size + 2)
        utf8.reserve(qMax(2 * utf8.capacity(), utf8.size() + size + 2));
    utf8 += '"';
    while (at != end) {
        at = appendPlain(utf8, at, end);
        if (at == end)
            break;
        if (*at == QLatin1Char('"')) {
            utf8 += "\"\"";
            ++at;
        } else if (*at == QLatin1Char('\f')) {
            utf8 += '\n';
            ++at;
        } else if (isBrokenApostrophe(at, end)) {
            utf8 += '\'';
            at += 3;
        } else {
            const QChar* const until = wideEnd(at, end);
            utf8 += QString::fromRawData(at, static_cast<int>(until - at)).toUtf8();
            at = until;
        }
    }
    utf8 += '"';
}

}  // namespace csv
