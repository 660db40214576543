#pragma once

#include <QString>

class SafeXmlReader;

/// Takes the text of a .docx file: its words in the order of the document, line breaks, tabs, and where bold,
/// italic and underlined begin and end. The presence of such a mark switches it on, whatever its value.
class DOCXTextExtractor {
public:
    explicit DOCXTextExtractor(QString docxPath) : m_path(std::move(docxPath)) {}

    /// A rich text fragment; empty when the file isn't a word processor's document. Of a document that breaks
    /// off, the part before is given.
    QString extract();

private:
    void readPart(SafeXmlReader& xml);
    void startElement(const QStringRef& name);
    void endElement(const QStringRef& name);

    QString m_path;
    QString m_text;
    QString m_pendingEnds;  ///< of the marks that wait for the end of a text, in the order of their begin
};
