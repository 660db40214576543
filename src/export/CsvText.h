#pragma once

#include <QString>
#include <QStringList>

/// The notation of the CSV files that Kernova writes: RFC 4180, but for a comma after the last field and for
/// lines that end in a line feed.
namespace csv {

/// A text as a field: in quotes, with each quote doubled. A form feed becomes a line feed, and an apostrophe
/// whose UTF-8 bytes were once read as Latin-1 becomes one again.
QString quoted(QString text);

/// `length` characters of the text from `start`, as a field.
QString quoted(const QString& text, int start, int length);

}  // namespace csv
