#pragma once

#include <QChar>
#include <QFlags>
#include <QString>
#include <QStringList>
#include <QVector>

/// How the fields of a CSV text may be quoted. A quote opens at the begin of a field.
enum class CsvQuote {
    Single = 1,     ///< ' quotes
    Double = 2,     ///< " quotes
    Doubled = 4,    ///< a doubled quote inside of a quoted field stands for one
    Backslash = 8,  ///< a backslash inside of a quoted field takes the next character as it is
};
Q_DECLARE_FLAGS(CsvQuotes, CsvQuote)
Q_DECLARE_OPERATORS_FOR_FLAGS(CsvQuotes)

/// What RFC 4180 and spreadsheets mean by CSV.
constexpr CsvQuotes defaultCsvQuotes = CsvQuotes(CsvQuote::Double) | CsvQuote::Doubled;

/// The rows of a CSV text. Outside of quotes any line separator, paragraph separator or control character
/// ends a row, CR LF once; lines without a character are no rows. A quote that isn't closed lasts to the end.
QVector<QStringList> csvRows(const QString& text, QChar separator = QLatin1Char(','),
                             CsvQuotes quotes = defaultCsvQuotes);
