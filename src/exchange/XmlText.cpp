#include "exchange/XmlText.h"

#include <algorithm>

namespace xmltext {

namespace {

bool isForbidden(ushort unit) {
    return (unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r') || unit >= 0xFFFE;
}

QString allowed(QString text) {
    for (int i = 0; i < text.size(); ++i) {
        if (isForbidden(text.at(i).unicode()))
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

/// What a byte of a text in UTF-8 becomes; null for most.
const char* entityOf(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case 0x0C:
        return "\n";
    default:
        return nullptr;
    }
}

/// Of `<b>`, `<i>`, `<u>` or their end, which begins at `at` in a text that ends with a zero; else 0.
int lengthOfMark(const char* at) {
    const char* letter = at + 1 + (at[1] == '/');
    const bool isMark = *letter == 'b' || *letter == 'i' || *letter == 'u';
    return isMark && letter[1] == '>' ? static_cast<int>(letter + 2 - at) : 0;
}

// All of them have the second character in common, which no person writes.
QString withoutMisreadQuotes(QString text) {
    if (!text.contains(QChar(0x80)))
        return text;
    return text.replace(QStringLiteral("\u00e2\u0080\u0099"), QLatin1String("'"))
        .replace(QStringLiteral("\u00e2\u0080\u009c"), QLatin1String("\""))
        .replace(QStringLiteral("\u00e2\u0080\u009d"), QLatin1String("\""));
}

}  // namespace

QByteArray ownForFile(const QString& text) {
    const QByteArray bytes = withoutMisreadQuotes(text).toUtf8();
    QByteArray escaped;
    escaped.reserve(bytes.size() + bytes.size() / 16);
    const char* const end = bytes.constEnd();
    const char* from = bytes.constBegin();
    for (const char* at = from; at < end;) {
        const char* const entity = entityOf(*at);
        if (!entity) {
            ++at;
            continue;
        }
        escaped.append(from, static_cast<int>(at - from));
        const int mark = *at == '<' ? lengthOfMark(at) : 0;
        if (mark == 0)
            escaped.append(entity);
        at += std::max(mark, 1);
        from = at;
    }
    return escaped.append(from, static_cast<int>(end - from));
}

QByteArray own(const QString& text) {
    QString unbroken = text;
    unbroken.replace(QChar(0x0C), QLatin1Char('\n'));
    return ownForFile(allowed(unbroken));
}

QByteArray literal(const QString& text) {
    QByteArray bytes = allowed(text).toUtf8();
    bytes.replace('&', "&amp;");
    bytes.replace('<', "&lt;");
    bytes.replace('>', "&gt;");
    bytes.replace('"', "&quot;");
    bytes.replace('\r', "&#13;");
    bytes.replace('\n', "&#10;");
    bytes.replace('\t', "&#9;");
    return bytes;
}

}  // namespace xmltext
