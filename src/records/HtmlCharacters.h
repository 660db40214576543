#pragma once

#include <QByteArray>
#include <QString>

/// Carries characters through the HTML parser that it would replace: control characters and code points that
/// stand for no character. The HTML standard keeps them, so they travel as private-use characters.
namespace htmlcharacters {

/// The UTF-8 form for the parser.
QByteArray encode(const QString& text);

/// The text of what the parser gives back.
QString decode(const char* utf8);

}  // namespace htmlcharacters
