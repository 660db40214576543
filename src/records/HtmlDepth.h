#pragma once

#include <QByteArray>
#include <QString>

/// How deep the elements of an HTML text nest, told before it is parsed.
namespace htmldepth {

struct Estimate {
    int open = 0;  ///< the most elements that stand open at one place; counting ends above the limit
    int tags = 0;  ///< the start tags read: no text nests deeper than these
};

/// Reads the tags of a UTF-8 text. Void elements, those that a text need not close, and comments don't nest,
/// and an end tag in the wrong place closes nothing.
Estimate estimate(const QByteArray& html, int limit);

/// Whether elements of this name, in small letters, have no end tag.
bool isVoid(const QByteArray& tag);

}  // namespace htmldepth
