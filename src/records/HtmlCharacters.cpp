#include "records/HtmlCharacters.h"

#include <QVector>
#include <algorithm>

namespace htmlcharacters {
namespace {

// Where the stand-ins begin, in the second private-use plane: controls first, then U+FDD0 to U+FDEF, then the
// last two code points of each plane.
constexpr uint standIns = 0x10F000;
constexpr uint arabicStandIns = standIns + 0x100;
constexpr uint lastStandIns = standIns + 0x200;
constexpr uint standInsEnd = standIns + 0x300;

bool isControl(uint c) {
    return (c >= 0x01 && c <= 0x08) || c == 0x0B || (c >= 0x0E && c <= 0x1F) || (c >= 0x7F && c <= 0x9F);
}

uint standIn(uint c) {
    if (isControl(c))
        return standIns + c;
    if (c >= 0xFDD0 && c <= 0xFDEF)
        return arabicStandIns + (c - 0xFDD0);
    if ((c & 0xFFFE) == 0xFFFE)
        return lastStandIns + (c >> 16) * 2 + (c & 1);
    return c;
}

uint original(uint c) {
    if (c < standIns || c >= standInsEnd)
        return c;
    if (c >= lastStandIns)
        return (((c - lastStandIns) / 2) << 16) | 0xFFFE | (c & 1);
    if (c >= arabicStandIns)
        return c - arabicStandIns + 0xFDD0;
    return c - standIns;
}

template <typename Map> QString mapped(const QString& text, Map map) {
    QVector<uint> points = text.toUcs4();
    std::transform(points.begin(), points.end(), points.begin(), map);
    return QString::fromUcs4(points.constData(), points.size());
}

bool mayNeedStandIn(QChar c) {
    const char16_t u = c.unicode();
    return isControl(u) || (u >= 0xFDD0 && u <= 0xFDEF) || u >= 0xFFFE || u == 0xDFFE || u == 0xDFFF;
}

}  // namespace

QByteArray encode(const QString& text) {
    if (std::none_of(text.cbegin(), text.cend(), mayNeedStandIn))
        return text.toUtf8();
    return mapped(text, standIn).toUtf8();
}

QString decode(const char* utf8) {
    const QString text = QString::fromUtf8(utf8);
    // All stand-ins share one high surrogate.
    if (!text.contains(QChar(QChar::highSurrogate(standIns))))
        return text;
    return mapped(text, original);
}

}  // namespace htmlcharacters
