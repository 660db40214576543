#pragma once

#include <QString>

class QTextDocument;

/// The rich text fragment of a document: its plain text with `<b>`, `<i>` and `<u>` around the runs, in the
/// wrapper in which answer text travels. Nothing else of the document's layout survives, and nothing is
/// escaped. A run is bold when it is heavier than the document's default font.
QString richTextFromDocument(QTextDocument* document);

/// Toggles a style of the characters [start, end) in one step of the document's undo history: when all of
/// them have the style it is taken away, otherwise all get it. An empty range counts as having it.
void toggleBold(QTextDocument* document, int start, int end);
void toggleItalic(QTextDocument* document, int start, int end);
void toggleUnderline(QTextDocument* document, int start, int end);
