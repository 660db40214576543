#pragma once

#include <QPair>
#include <QString>
#include <QVector>

/// An HTML document as answers need it: its text, with positions, and its serialised form. A value; copies
/// are cheap. The parser behind it is known to HtmlDocument.cpp alone.
class HtmlDocument {
public:
    /// An empty document, as parsing an empty text gives.
    HtmlDocument() = default;

    /// Parses as the HTML standard says. A text that nests absurdly deep gives an empty document with
    /// `isParsed()` false.
    static HtmlDocument parse(const QString& html);

    /// The document of `<body style="white-space: pre-wrap;">text</body>`. Equal to parsing that, without a
    /// parser, for a text that `isPlain`.
    static HtmlDocument fromPlainText(const QString& text);

    /// Whether a text means itself in HTML, so that no parser is needed: no `<`, `&`, NUL, CR or broken
    /// surrogate.
    static bool isPlain(const QString& text);

    bool isParsed() const { return m_parsed; }

    /// The text of the body: a line feed for each `br` and after each block element.
    QString plainText() const;

    /// The same with `<b>`, `<i>` and `<u>` around what is bold, italic and underlined.
    QString richText() const;

    /// The whole document, as the HTML standard's serialisation algorithm gives it.
    QString serialized() const;

    /// The document with only the characters [start, start + length) of its plain text; elements stay.
    HtmlDocument window(int start, int length) const;

private:
    enum class Kind { Open, Close, Text, Comment, Doctype };

    struct Attribute {
        QString name;
        QString value;
    };

    /// The document in document order; elements stand as a pair of parts.
    struct Part {
        Kind kind;
        QString text;  ///< tag name, character data, comment or doctype name
        QVector<Attribute> attributes;
    };

    friend class HtmlReader;

    template <typename Visitor> void visitBody(Visitor visit) const;

    QVector<Part> m_parts;
    bool m_parsed = true;
};
