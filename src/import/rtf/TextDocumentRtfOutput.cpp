#include "import/rtf/TextDocumentRtfOutput.h"

#include <QTextDocument>

namespace RtfReader {

TextDocumentRtfOutput::TextDocumentRtfOutput(QTextDocument* document) : m_cursor(document) {
    m_cursor.movePosition(QTextCursor::End);
    m_cursor.beginEditBlock();
}

TextDocumentRtfOutput::~TextDocumentRtfOutput() {
    writeRun();
    m_cursor.endEditBlock();
}

void TextDocumentRtfOutput::insertText(const QString& text, const Style& style) {
    if (!(style == m_style))
        writeRun();
    m_style = style;
    m_run += text;
}

void TextDocumentRtfOutput::writeRun() {
    if (m_run.isEmpty())
        return;
    QTextCharFormat format;
    if (m_style.bold)
        format.setFontWeight(QFont::Bold);
    if (m_style.italic)
        format.setFontItalic(true);
    if (m_style.underline)
        format.setFontUnderline(true);
    m_cursor.insertText(m_run, format);
    m_run.clear();
}

}  // namespace RtfReader
