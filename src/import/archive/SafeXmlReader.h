#pragma once

#include <QXmlStreamReader>

/// What an XML document of unknown origin may cost.
struct XmlLimits {
    int depth = 1000;
};

/// Reads XML of unknown origin: a document with a document type declaration, or one that nests too deep, ends
/// with an error like any that isn't well-formed. Nothing outside the document is ever read. The ways of
/// going on are those of this class, which do what the base's do.
class SafeXmlReader : public QXmlStreamReader {
public:
    explicit SafeXmlReader(const QString& text, const XmlLimits& limits = {})
        : QXmlStreamReader(text), m_limits(limits) {}
    /// Reads from a device, which is not owned, in the encoding that the document declares.
    explicit SafeXmlReader(QIODevice* device, const XmlLimits& limits = {})
        : QXmlStreamReader(device), m_limits(limits) {}

    TokenType readNext();
    bool readNextStartElement();
    void skipCurrentElement();
    /// The text of the current element and all in it, up to its end.
    QString readElementText();

    /// Where and why reading ended, as "Parse error at line 1, column 2: ..."; empty without an error.
    QString failure() const;

private:
    XmlLimits m_limits;
    int m_depth = 0;
};
