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

}  // namespace richtext

/// The rich text fragment of a document: its plain text with `<b>`, `<i>` and `<u>` around the runs. Nothing
/// else of the document's layout survives, and nothing is escaped. A run is bold when it is heavier than the
/// document's default font.
QString richTextFromDocument(const QTextDocument* document);
