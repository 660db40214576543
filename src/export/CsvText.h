#pragma once

#include <QByteArray>
#include <QString>

/// The notation of the CSV files that Kernova writes: RFC 4180, but for a comma after the last field and for
/// lines that end in a line feed.
namespace csv {

/// Adds a text as a field, in UTF-8: in quotes, with each quote doubled. A form feed becomes a line feed, and
/// an apostrophe whose UTF-8 bytes were once read as Latin-1 becomes one again.
void appendQuoted(QByteArray& utf8, const QString& text);

/// The same with `length` characters of the text from `start`.
void appendQuoted(QByteArray& utf8, const QString& text, int start, int length);

}  // namespace csv
