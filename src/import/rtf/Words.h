#pragma once

#include <QByteArray>
#include <QString>

namespace RtfReader {

/// What a control word does that isn't a setting with a number of its own.
enum class WordKind {
    Unknown,
    Character,  ///< stands for a character
    Cell,       ///< ends a cell of a table
    Row,        ///< ends a row
    Bold,
    Italic,
    Underline,
    NoUnderline,
    Skipped,  ///< begins a destination without text of the document
    Shape,    ///< a drawing: only the text of its box counts
    ShapeText,
    UnicodePair,  ///< the same text twice: only the Unicode form counts
    UnicodeText,
    Footnote,
    FontTable
};

struct WordMeaning {
    WordKind kind = WordKind::Unknown;
    char16_t character = 0;
};

WordMeaning meaningOf(const QByteArray& word);

/// The character of a control symbol such as `\~`; null for one without.
QChar characterOfSymbol(char symbol);

}  // namespace RtfReader
