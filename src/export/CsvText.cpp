#include "export/CsvText.h"

namespace csv {

QString quoted(QString text) {
    static const QString brokenApostrophe = QStringLiteral("\u00E2\u0080\u0099");
    const QChar quote = QLatin1Char('"');
    text.replace(QLatin1Char('\f'), QLatin1Char('\n'));
    text.replace(brokenApostrophe, QLatin1String("'"));
    text.replace(quote, QLatin1String("\"\""));
    return quote + text + quote;
}

QString quoted(const QString& text, int start, int length) {
    return quoted(text.mid(start, length));
}

}  // namespace csv
