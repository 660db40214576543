#include "exchange/XmlText.h"

#include <QRegularExpression>

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

}  // namespace

QByteArray ownForFile(const QString& text) {
    static const QRegularExpression marks(QStringLiteral("</?[ibu]>"));
    static const QString apostrophe = QStringLiteral("\u00e2\u0080\u0099");
    static const QString openingQuote = QStringLiteral("\u00e2\u0080\u009c");
    static const QString closingQuote = QStringLiteral("\u00e2\u0080\u009d");
    QString escaped = text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
    if (escaped.contains(QLatin1Char('<')))
        escaped.remove(marks);
    if (escaped.contains(QChar(0xE2))) {
        escaped.replace(apostrophe, QLatin1String("'"));
        escaped.replace(openingQuote, QLatin1String("\""));
        escaped.replace(closingQuote, QLatin1String("\""));
    }
    escaped.replace(QLatin1Char('&'), QLatin1String("&amp;"));
    escaped.replace(QLatin1Char('<'), QLatin1String("&lt;"));
    escaped.replace(QLatin1Char('>'), QLatin1String("&gt;"));
    escaped.replace(QLatin1Char('"'), QLatin1String("&quot;"));
    escaped.replace(QChar(0x0C), QLatin1Char('\n'));
    return escaped.toUtf8();
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
