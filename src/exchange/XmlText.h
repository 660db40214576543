#pragma once

#include <QByteArray>
#include <QString>

/// Texts of people as they stand in an exchange document. All give UTF-8 in which no text can end the element
/// or attribute that it stands in, and no character that XML forbids.
namespace xmltext {

/// The text of our own form: without `<b>`, `<i>`, `<u>` and their ends, with the typographic quotes that
/// were misread as Latin-1 mended, and with entities for `&`, `<`, `>` and the double quote.
QByteArray own(const QString& text);
/// The same for a text file, where any character may stand.
QByteArray ownForFile(const QString& text);

/// The text as it is, line ends and tabs included, in an element or in an attribute.
QByteArray literal(const QString& text);

}  // namespace xmltext
