#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

/// Looks at JSON text without building it up in memory.
namespace jsonscan {

/// JSON nested deeper than this is refused.
constexpr int maxDepth = 64;

/// Whether brackets nest deeper than `limit` anywhere in the text. Doesn't ask whether the text is valid
/// JSON.
bool nestsDeeperThan(const QByteArray& text, int limit);

/// A part of a text.
struct Span {
    int begin = 0;
    int end = 0;
};

/// Told of a member's or an element's value; false ends the walk.
using Visit = std::function<bool(const QByteArray& key, Span value)>;

/// Walks the members of the object in `span`. False when it isn't an object or its outline is broken; what is
/// inside the values isn't looked at.
bool eachMember(const QByteArray& text, Span span, const Visit& visit);

/// Walks the elements of the array in `span`, with an empty key.
bool eachElement(const QByteArray& text, Span span, const Visit& visit);

/// A copy of the part of the text.
QByteArray part(const QByteArray& text, Span span);

}  // namespace jsonscan
