#pragma once

#include <QRegularExpression>
#include <QString>
#include <QVector>

namespace Search {

/// Characters [start, end) of a text, in UTF-16 units.
struct Stretch {
    int start = 0;
    int end = 0;
    int length() const { return end - start; }
};

inline bool operator==(const Stretch& a, const Stretch& b) {
    return a.start == b.start && a.end == b.end;
}

constexpr int wordsOfContext = 5;

/// The text without broken surrogates, which the engine can't read; all positions stay. Needed for what was
/// cut out of a text; the text of an answer has none.
QString readable(QString text);

/// Every match of `unit{0,5}hit unit{0,5}`, one after the other, where a unit is `\S+\s+|\s+\S+`: hits with
/// up to five words on each side. `hit` has the hit in its first capture. The result is that of the one
/// expression; but here the hits are found first and their words only then, because an expression that
/// begins with words tries them at every place of a text. Empty matches are left out. The text has no broken
/// surrogates.
QVector<Stretch> contextMatches(const QString& text, const QRegularExpression& hit);

/// Where `hit` matches in a text, one after the other; without empty matches. The text has no
/// broken surrogates.
QVector<Stretch> hits(const QString& text, const QRegularExpression& hit);

}  // namespace Search
