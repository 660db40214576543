#include "import/CsvReader.h"

namespace {

bool endsRow(QChar c) {
    // Most characters are letters: the category of those that can't end a row is never asked for.
    if (c.unicode() >= 0x20 && c.unicode() < 0x7f)
        return false;
    const QChar::Category category = c.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

bool isQuote(QChar c, CsvQuotes quotes) {
    return (c == QLatin1Char('"') && quotes.testFlag(CsvQuote::Double)) ||
           (c == QLatin1Char('\'') && quotes.testFlag(CsvQuote::Single));
}

}  // namespace

QVector<QStringList> csvRows(const QString& text, QChar separator, CsvQuotes quotes) {
    QVector<QStringList> rows;
    QStringList row;
    QString field;
    QChar quote;  // the one that is open; null for none
    bool fieldBegins = true;
    const auto endField = [&] {
        row.append(field);
        field = QString();
        fieldBegins = true;
    };
    const auto endRow = [&] {
        const bool isBlank = row.isEmpty() && fieldBegins;
        endField();
        if (!isBlank)
            rows.append(row);
        row.clear();
    };
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const QChar next = i + 1 < text.size() ? text.at(i + 1) : QChar();
        if (!quote.isNull()) {
            const bool escapes =
                c == QLatin1Char('\\') && quotes.testFlag(CsvQuote::Backslash) && !next.isNull();
            const bool doubles = c == quote && next == quote && quotes.testFlag(CsvQuote::Doubled);
            if (escapes || doubles) {
                field += next;
                ++i;
            } else if (c == quote) {
                quote = QChar();
            } else {
                field += c;
            }
        } else if (fieldBegins && isQuote(c, quotes)) {
            quote = c;
            fieldBegins = false;
        } else if (c == separator) {
            endField();
        } else if (endsRow(c)) {
            endRow();
            if (c == QLatin1Char('\r') && next == QLatin1Char('\n'))
                ++i;
        } else {
            field += c;
            fieldBegins = false;
        }
    }
    endRow();
    return rows;
}
