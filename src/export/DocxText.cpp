#include "export/DocxText.h"

namespace docx {

namespace {

bool isForbidden(ushort unit) {
    const bool isControl = unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r';
    return isControl || unit == 0xFFFE || unit == 0xFFFF;
}

// A reader would take a line end in an attribute for a blank.
const char* entityOf(ushort unit) {
    switch (unit) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\n':
        return "&#10;";
    case '\r':
        return "&#13;";
    default:
        return nullptr;
    }
}

}  // namespace

QByteArray escaped(const QString& text) {
    QString kept;
    kept.reserve(text.size() + text.size() / 16);
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            kept += c;
            kept += text.at(++i);
        } else if (const char* entity = entityOf(c.unicode())) {
            kept += QLatin1String(entity);
        } else if (!c.isSurrogate() && !isForbidden(c.unicode())) {
            kept += c;
        }
    }
    return kept.toUtf8();
}

void appendText(QByteArray& xml, const QString& text) {
    xml += "<w:t xml:space=\"preserve\">";
    xml += escaped(text);
    xml += "</w:t>";
}

void appendRun(QByteArray& xml, const QString& text, quint8 marks) {
    xml += "<w:r>";
    if (marks != 0) {
        xml += "<w:rPr>";
        xml += marks & MarkedText::Bold ? "<w:b/>" : "";
        xml += marks & MarkedText::Italic ? "<w:i/>" : "";
        xml += marks & MarkedText::Underline ? "<w:u w:val=\"single\"/>" : "";
        xml += "</w:rPr>";
    }
    appendText(xml, text);
    xml += "</w:r>";
}

void appendRuns(QByteArray& xml, const QString& text, quint8 marks) {
    int start = 0;
    while (start < text.size()) {
        const int lineEnd = text.indexOf(QLatin1Char('\n'), start);
        const int end = lineEnd < 0 ? text.size() : lineEnd;
        if (end > start)
            appendRun(xml, text.mid(start, end - start), marks);
        if (lineEnd >= 0)
            xml += "<w:r><w:br/></w:r>";
        start = end + 1;
    }
}

}  // namespace docx
