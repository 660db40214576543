#pragma once

#include "import/rtf/Output.h"

#include <QTextCursor>

class QTextDocument;

namespace RtfReader {

/// Writes the text at the end of a document, which is not owned and outlives the output. The last run is in
/// the document once the output is destroyed.
class TextDocumentRtfOutput : public Output {
public:
    explicit TextDocumentRtfOutput(QTextDocument* document);
    ~TextDocumentRtfOutput() override;
    TextDocumentRtfOutput(const TextDocumentRtfOutput&) = delete;
    TextDocumentRtfOutput& operator=(const TextDocumentRtfOutput&) = delete;

    void insertText(const QString& text, const Style& style) override;

private:
    void writeRun();

    QTextCursor m_cursor;
    QString m_run;  ///< what has one style and isn't written yet: a document takes few long runs faster
    Style m_style;
};

}  // namespace RtfReader
