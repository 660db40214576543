#include "exchange/CodePoints.h"

#include <QTextCodec>
#include <algorithm>
#include <memory>

namespace {

constexpr ushort misreadSeparator[] = {0xE2, 0x80, 0xA8};

bool isLineEnd(ushort unit) {
    return unit == '\r' || unit == 0x0C || unit == 0x2028 || unit == 0x07EC || unit == 0x07ED;
}

bool isDropped(ushort unit) {
    return unit == 0 || unit == 7 || unit == 8 || unit == 0x11 || unit == 0x13;
}

bool staysAsItIs(const QString& text) {
    return std::none_of(text.cbegin(), text.cend(), [](QChar c) {
        const ushort unit = c.unicode();
        return isLineEnd(unit) || isDropped(unit) || c.isSurrogate() || unit == misreadSeparator[2];
    });
}

// What was read as Latin-1 and meant a line separator: three characters become one line feed.
void foldSeparator(QString& plain, QVector<int>& units) {
    const int begin = plain.size() - 3;
    if (begin < 0 || plain.at(begin).unicode() != misreadSeparator[0] ||
        plain.at(begin + 1).unicode() != misreadSeparator[1])
        return;
    plain.truncate(begin);
    for (int i = units.size() - 1; i >= 0 && units.at(i) > begin; --i)
        units[i] = begin;
    plain.append(QLatin1Char('\n'));
}

QString decoded(const QByteArray& bytes, int& marks) {
    marks = 1;
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return QTextCodec::codecForName("UTF-16")->toUnicode(bytes);
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(bytes.mid(3));
    marks = 0;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text;
    return QTextCodec::codecForName("windows-1252")->toUnicode(bytes);
}

}  // namespace

int CodePointMap::codePointOf(int unit) const {
    if (m_units.isEmpty())
        return std::min(unit, m_count);
    const auto after = std::upper_bound(m_units.cbegin(), m_units.cend(), unit);
    return static_cast<int>(after - m_units.cbegin()) - 1;
}

CodePointMap codePointsOf(const QString& text) {
    if (std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); }))
        return CodePointMap(text.size());
    QVector<int> units;
    units.reserve(text.size() + 1);
    for (int i = 0; i < text.size(); ++i) {
        units.append(i);
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
    }
    units.append(text.size());
    return CodePointMap(units);
}

LiteralText literalText(const QString& text, int skipped) {
    if (skipped == 0 && staysAsItIs(text))
        return {text, CodePointMap(text.size())};
    QString plain;
    plain.reserve(text.size());
    QVector<int> units(skipped, 0);
    units.reserve(text.size() + skipped + 1);
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        units.append(plain.size());
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            plain.append(c).append(text.at(++i));
        } else if (c == QLatin1Char('\r') && i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n')) {
            plain.append(QLatin1Char('\n'));
            units.append(plain.size());
            ++i;
        } else if (isLineEnd(c.unicode())) {
            plain.append(QLatin1Char('\n'));
        } else if (c.isSurrogate()) {
            plain.append(QChar(QChar::ReplacementCharacter));
        } else if (!isDropped(c.unicode())) {
            plain.append(c);
            if (c.unicode() == misreadSeparator[2])
                foldSeparator(plain, units);
        }
    }
    units.append(plain.size());
    return {plain, CodePointMap(units)};
}

LiteralText literalFile(const QByteArray& bytes) {
    int marks = 0;
    const QString text = decoded(bytes, marks);
    return literalText(text, marks);
}

QString asAnswer(const QString& plain) {
    QString escaped = plain;
    escaped.replace(QLatin1Char('&'), QStringLiteral("&amp;"));
    escaped.replace(QLatin1Char('<'), QStringLiteral("&lt;"));
    return escaped;
}
