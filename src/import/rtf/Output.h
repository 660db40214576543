#pragma once

#include <QString>

namespace RtfReader {

/// How a run of text looks, as far as it is kept.
struct Style {
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const Style& other) const {
        return bold == other.bold && italic == other.italic && underline == other.underline;
    }
};

/// Takes the text of a document, in its order.
class Output {
public:
    virtual ~Output() = default;

    /// A line feed ends a paragraph, U+2028 a line.
    virtual void insertText(const QString& text, const Style& style) = 0;
};

}  // namespace RtfReader
