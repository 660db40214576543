#include "search/ContextMatches.h"

#include <QVarLengthArray>
#include <algorithm>

namespace Search {

namespace {

// What `\s` is to the expression: its Unicode properties count the vowel separator in.
bool isBlank(QChar c) {
    return c.isSpace() || c == QChar(0x180E);
}

// Tokens are the runs of blanks and the runs of other characters, as they alternate.

int tokenEnd(const QString& text, int from) {
    const bool blank = isBlank(text.at(from));
    int end = from + 1;
    while (end < text.size() && isBlank(text.at(end)) == blank)
        ++end;
    return end;
}

int tokenStart(const QString& text, int before, int bound) {
    const bool blank = isBlank(text.at(before - 1));
    int start = before - 1;
    while (start > bound && isBlank(text.at(start - 1)) == blank)
        --start;
    return start;
}

// A unit begins anywhere in a token and ends anywhere in the next one or at its end, but takes the rest of
// its own token: the character after `\S+` must be a blank, and the one after `\s+` none.

/// How far back up to five units reach from a hit, if each takes a whole token and the one before it.
struct Reach {
    int start = 0;
    bool endsAtBound = false;  ///< fewer tokens are there than five units could take
};

Reach reachBack(const QString& text, int hit, int bound) {
    Reach reach{hit, false};
    for (int unit = 0; unit < wordsOfContext; ++unit) {
        const int own = reach.start > bound ? tokenStart(text, reach.start, bound) : bound;
        if (own == bound)
            return {reach.start, true};
        reach.start = tokenStart(text, own, bound);
    }
    return reach;
}

/// Where up to five units end, each as long as it can be.
int lastEnd(const QString& text, int start) {
    int end = start;
    for (int unit = 0; unit < wordsOfContext && end < text.size(); ++unit) {
        const int next = tokenEnd(text, end);
        if (next == text.size())
            break;
        end = tokenEnd(text, next);
    }
    return end;
}

/// The hits of a text by their start, also such as overlap, found as far as they are asked for.
class HitStarts {
public:
    HitStarts(const QString& text, const QRegularExpression& hit) : m_text(text), m_hit(hit) {}

    /// The first hit at or after `from`, which never decreases; starts at -1 when there is none.
    Stretch firstFrom(int from) {
        while (m_next < m_found.size() && m_found.at(m_next).start < from)
            ++m_next;
        if (m_next == m_found.size()) {
            m_found.clear();
            m_next = 0;
            m_searched = std::max(m_searched, from);
            if (!findMore())
                return {-1, -1};
        }
        return m_found.at(m_next);
    }

    /// The hit that starts latest in [first, last], or one that starts at -1.
    Stretch latestIn(int first, int last) {
        while ((m_found.isEmpty() || m_found.at(m_found.size() - 1).start <= last) && findMore()) {}
        for (int i = m_found.size() - 1; i >= m_next; --i) {
            if (m_found.at(i).start <= last)
                return m_found.at(i).start >= first ? m_found.at(i) : Stretch{-1, -1};
        }
        return {-1, -1};
    }

private:
    bool findMore() {
        if (m_searched > m_text.size())
            return false;
        const QRegularExpressionMatch match =
            m_hit.match(m_text, m_searched, QRegularExpression::NormalMatch,
                        QRegularExpression::DontCheckSubjectStringMatchOption);
        if (!match.hasMatch()) {
            m_searched = m_text.size() + 1;
            return false;
        }
        const int start = match.capturedStart(1);
        m_found.append({start, match.capturedEnd(1)});
        const bool pair = start < m_text.size() && m_text.at(start).isHighSurrogate();
        m_searched = std::max(m_searched, start) + (pair ? 2 : 1);
        return true;
    }

    const QString& m_text;
    const QRegularExpression& m_hit;
    QVarLengthArray<Stretch, 32> m_found;
    int m_next = 0;
    int m_searched = 0;
};

/// Which hit the expression takes that begins at a given place. It prefers more units to fewer and long ones
/// to short ones, so it goes through the ends of a unit from the farthest to the nearest, and takes a hit at
/// a place only when no further unit from there leads to one.
class PreferredHit {
public:
    PreferredHit(const QString& text, HitStarts& starts) : m_text(text), m_starts(starts) {}

    Stretch from(int start) {
        const Stretch after = afterUnits(start, 0);
        return after.start >= 0 ? after : m_starts.latestIn(start, start);
    }

private:
    Stretch afterUnits(int place, int units) {
        if (units == wordsOfContext || place == m_text.size())
            return none;
        const int next = tokenEnd(m_text, place);
        if (next == m_text.size())
            return none;
        const int end = tokenEnd(m_text, next);
        if (const Stretch hit = afterUnits(end, units + 1); hit.start >= 0)
            return hit;
        if (const Stretch hit = m_starts.latestIn(end, end); hit.start >= 0)
            return hit;
        // From inside the next token the same units follow wherever that is.
        const int inside = next + (m_text.at(next).isHighSurrogate() ? 2 : 1);
        if (inside >= end)
            return none;
        if (const Stretch hit = afterUnits(inside, units + 1); hit.start >= 0)
            return hit;
        return m_starts.latestIn(inside, end - 1);
    }

    static constexpr Stretch none{-1, -1};
    const QString& m_text;
    HitStarts& m_starts;
};

}  // namespace

QString readable(QString text) {
    if (text.isValidUtf16())
        return text;
    for (int i = 0; i < text.size(); ++i) {
        const bool pair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (pair)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

QVector<Stretch> contextMatches(const QString& text, const QRegularExpression& hit) {
    QVector<Stretch> matches;
    if (!hit.isValid())
        return matches;
    HitStarts starts(text, hit);
    for (int from = 0; from <= text.size();) {
        const Stretch first = starts.firstFrom(from);
        if (first.start < 0)
            break;
        // Near the bound a later hit may be reached from the bound itself, and a place that is nearer only
        // from inside a word, so the bound is tried. Elsewhere the first hit reaches farther back than any
        // other.
        const Reach reach = reachBack(text, first.start, from);
        PreferredHit preferred(text, starts);
        int start = from;
        Stretch taken = reach.endsAtBound ? preferred.from(from) : Stretch{-1, -1};
        if (taken.start < 0) {
            start = reach.start;
            taken = preferred.from(start);
        }
        const int end = lastEnd(text, taken.end);
        if (end > start)
            matches.append({start, end});
        const bool pair = end < text.size() && text.at(end).isHighSurrogate();
        from = end > start ? end : end + (pair ? 2 : 1);
    }
    return matches;
}

QVector<Stretch> hits(const QString& text, const QRegularExpression& hit) {
    QVector<Stretch> list;
    if (!hit.isValid())
        return list;
    QRegularExpressionMatchIterator matches = hit.globalMatch(
        text, 0, QRegularExpression::NormalMatch, QRegularExpression::DontCheckSubjectStringMatchOption);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedLength(1) > 0)
            list.append({match.capturedStart(1), match.capturedEnd(1)});
    }
    return list;
}

}  // namespace Search
