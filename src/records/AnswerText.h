#pragma once

#include "records/CompactText.h"
#include "records/HtmlDocument.h"

#include <QString>
#include <QVector>

/// The text of an answer in all its forms: what is stored, what is shown, and the plain text on which
/// positions count. Made once for a stored text and then shared by all copies of the answer. A text without
/// markup is held once, as the plain text, and its other forms are made when they are asked for: a project is
/// mostly such texts.
class AnswerText {
public:
    /// HTML, or a plain text inside the pre-wrap body.
    QString stored() const;
    /// Whether it was written as a document of its own, by the web client.
    bool isHtml() const { return m_isHtml; }
    HtmlDocument document() const;
    QString plain() const { return m_plain.text(); }
    /// The plain text in Latin-1 if it is held so; else null.
    const QByteArray& narrowPlain() const { return m_plain.narrow(); }
    /// Length of the plain text, in UTF-16 units.
    int length() const { return m_plain.size(); }
    /// The whole document.
    QString serialized() const { return document().serialized(); }

    /// Classifies and parses a text. A text that can't be parsed keeps its stored form and has no plain text.
    static AnswerText prepare(const QString& text);

    /// The part [start, start + length) of another text, counted in its plain text.
    static AnswerText part(const AnswerText& whole, int start, int length);

    /// A plain text with marks around some stretches [first, second), which come in order and don't overlap.
    /// A search makes thousands of these, and a person looks at a few.
    using Marks = QVector<QPair<int, int>>;
    static AnswerText marked(const QString& plain, const Marks& marks);

private:
    enum class Held { Document, PlainText, FramedPlainText, MarkedText };

    Held m_held = Held::Document;
    bool m_isHtml = false;
    CompactText m_plain;
    QString m_stored;         ///< of a document
    HtmlDocument m_document;  ///< of a document
    Marks m_marks;            ///< of a marked text
};

/// Whether a text that becomes an answer counts as an HTML document of its own, by what it begins with. Any
/// other text is put into a wrapper, in which only its marks have a meaning.
bool isTakenForHtml(const QString& text);

/// The clean-up of a text that the service delivers, before positions are counted.
QString normalizedFromService(QString text);

/// The clean-up of a text that becomes an answer: every import and edit passes through it.
QString normalizedForStorage(QString text);
