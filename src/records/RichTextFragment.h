#pragma once

#include <QString>

class QTextDocument;

/// The rich text fragment: the form in which imported and edited text travels to an answer. Its text stands
/// in a wrapper, between two line breaks that don't belong to it, with only `<b>`, `<i>` and `<u>` inside.
namespace richtext {

/// What a fragment, and every stored text without markup of its own, begins and ends with.
inline QString wrapperStart() {
    return QStringLiteral("<body style=\"white-space: pre-wrap;\">");
}
inline QString wrapperEnd() {
    return QStringLiteral("</body>");
}

/// The fragment of a text, which may hold marks. Nothing is escaped.
QString fragment(const QString& text);

/// A text in the form in which an answer gives back each of its characters: what would be read as mark-up,
/// and what the clean-up of answers replaces, stands as a character reference. Most texts are their own form.
QString escaped(const QString& text);

}  // namespace richtext

/// The rich text fragment of a document: its plain text with `<b>`, `<i>` and `<u>` around the runs. Nothing
/// else of the document's layout survives, and nothing is escaped. A run is bold when it is heavier than the
/// document's default font.
QString richTextFromDocument(const QTextDocument* document);

/// The text of a document as a person reads it: a line feed for each end of a paragraph or line, all else as
/// it is, non-breaking spaces too.
QString plainTextOf(const QTextDocument* document);

/// The same fragment for a text that was edited, escaped: an answer of it has the plain text of the document.
QString editedTextFromDocument(const QTextDocument* document);
