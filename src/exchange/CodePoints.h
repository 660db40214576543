#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// Where code points of a text from outside stand in the plain text that is made of it, and the other way
/// round. Ranges in both are half open.
class CodePointMap {
public:
    CodePointMap() = default;
    /// One code point for each unit.
    explicit CodePointMap(int count) : m_count(count) {}
    /// `units`: where each code point begins, and last where the text ends.
    explicit CodePointMap(QVector<int> units) : m_count(units.size() - 1), m_units(std::move(units)) {}

    int count() const { return m_count; }
    /// The UTF-16 unit at which a code point begins; `codePoint` is between 0 and `count()`.
    int unitOf(int codePoint) const { return m_units.isEmpty() ? codePoint : m_units.at(codePoint); }
    /// The code point that holds the unit.
    int codePointOf(int unit) const;

private:
    int m_count = 0;
    QVector<int> m_units;  ///< empty when every code point is one unit
};

/// A text of which every character stands as itself.
struct LiteralText {
    QString plain;     ///< as an answer will have it
    CodePointMap map;  ///< from the text as it was given
};

/// The map of a text that stays as it is.
CodePointMap codePointsOf(const QString& text);

/// What becomes of a text as the plain text of an answer: its line ends become line feeds, and the control
/// characters that no answer keeps are taken out. `skipped` code points stood before it.
LiteralText literalText(const QString& text, int skipped = 0);

/// The same of a text file: UTF-8, or UTF-16 with a byte order mark, which counts as a code point. Bytes that
/// aren't UTF-8 are taken for Windows-1252.
LiteralText literalFile(const QByteArray& bytes);

/// The plain text in the form in which an answer takes it: no word of it is a tag or an entity.
QString asAnswer(const QString& plain);
