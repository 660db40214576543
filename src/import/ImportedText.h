#pragma once

#include <QString>

/// A text with every line end, CR LF or CR, turned into a line feed.
QString withLineFeeds(QString text);

/// What becomes the text of an answer from outside: a file, the clipboard, a cell of a table. No word of it
/// is taken for a tag: unless the text counts as an HTML document of its own, each `<` that doesn't begin
/// `<b>`,
/// `<i>`, `<u>` or their ends is escaped; the wrapper of a rich text fragment, or what cutting one into
/// answers has left of its end, stays. Line ends become line feeds, and entities stay as they are.
QString importedText(const QString& text);

/// What becomes the text of a question: questions have no marks, so `<b>`, `<i>`, `<u>` and their ends, which
/// a marked marker leaves behind, go.
QString importedQuestion(const QString& text);
