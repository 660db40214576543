#pragma once

#include <QString>

/// The HTML of an answer in the form that a QTextDocument shows character for character: the document's
/// importer would drop a line feed at the very start and at the very end of the body, and every position
/// after it would be one off. Both become `<br>`, which it keeps.
QString displayHtml(const QString& html);
