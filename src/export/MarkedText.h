#pragma once

#include <QString>
#include <QVector>
#include <functional>

class AnswerText;

/// The text of an answer as stretches of plain text with their marks: what is left of its markup when it
/// leaves the program. Positions count UTF-16 units of the plain text.
class MarkedText {
public:
    enum Mark : quint8 { Bold = 1, Italic = 2, Underline = 4 };

    MarkedText() = default;

    static MarkedText of(const AnswerText& text);
    /// Of an answer's stored text, deciphered.
    static MarkedText fromStored(const QString& stored);

    const QString& plain() const { return m_plain; }
    /// Whether it was written as a document of its own.
    bool isHtml() const { return m_isHtml; }

    /// The characters [start, start + length) as HTML that shows them: escaped, with `<b>`, `<i>` and `<u>`
    /// around the marked ones. Positions outside the text are cut off.
    QString html(int start, int length) const;

    /// Is given the stretches of one look that [from, to) consists of, from left to right.
    using Visitor = std::function<void(int from, int to, quint8 marks)>;
    void visit(int from, int to, const Visitor& visitor) const;

private:
    /// One ends where the next begins. The first begins the text.
    struct Stretch {
        int start;
        quint8 marks;
    };

    bool readRich(const QString& rich);

    QString m_plain;
    bool m_isHtml = false;
    QVector<Stretch> m_stretches{{0, 0}};
};
