#pragma once

#include "records/Record.h"

#include <QPair>
#include <algorithm>

namespace passage {

/// Cuts a state to the window [offset, offset + windowLength) and makes it relative to `offset`. A
/// `windowLength` of -1 has no end. The end is relative, the limit it is compared with isn't: this is the
/// rule of the system.
template <typename State> void clip(State& s, int offset, int windowLength) {
    s.start -= offset;
    if (s.start < 0) {
        s.length += s.start;
        s.start = 0;
    }
    s.end = s.start + s.length;
    if (windowLength > -1) {
        const int limit = offset + windowLength;
        if (s.end > limit) {
            s.end = limit;
            s.length = limit - s.start;
        }
    }
    s.dataValid = s.length > 0;
}

/// The order of passages: start ascending; on equal start the one that ends later first.
template <typename P> bool lessThan(const P& a, const P& b) {
    return a.start() != b.start() ? a.start() < b.start() : a.end() > b.end();
}

}  // namespace passage

/// The part of a state that `PassageRecord` looks after.
struct PassageState : QSharedData {
    int sourceId = -1;
    int questionId = -1;
    int start = -1;
    int length = -1;
    int end = -1;
    QString author;
    QDateTime timestamp;
    int y1 = 0;
    int y2 = 0;
    bool dataValid = false;
    bool modified = false;
};

/// What highlights and memos have in common: they lie on a stretch [start, end) of an answer's plain text,
/// and a setter writes through all copies until `detach`. `S` derives from `PassageState`.
template <typename Derived, typename F, typename S>
class PassageRecord : public Record<Derived, int, F, S, QExplicitlySharedDataPointer> {
    using Base = Record<Derived, int, F, S, QExplicitlySharedDataPointer>;

protected:
    using Base::set;
    using Base::state;
    using Base::writableState;

public:
    int sourceId() const { return state().sourceId; }
    void setSourceId(int value) { set(&S::sourceId, value); }
    int questionId() const { return state().questionId; }
    void setQuestionId(int value) { set(&S::questionId, value); }
    int start() const { return state().start; }
    int length() const { return state().length; }
    int end() const { return state().end; }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&S::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&S::timestamp, value); }
    int y1() const { return state().y1; }
    void setY1(int value) { set(&S::y1, value); }
    int y2() const { return state().y2; }
    void setY2(int value) { set(&S::y2, value); }

    /// Keeps `end` in step with start and length.
    void setStart(int start) {
        S& s = writableState();
        s.start = start;
        s.end = s.start + s.length;
    }

    /// Keeps `end` in step; the record counts as readable only with a length above 0.
    void setLength(int length) {
        S& s = writableState();
        s.length = length;
        s.end = s.start + s.length;
        s.dataValid = length > 0;
        this->setParsedOk(length > 0);
    }

    /// Gives this copy a state of its own; until then a setter writes through all copies.
    void detach() { this->m_state.detach(); }

    /// Set by the tracking of edits when it moved or resized the record.
    bool isModified() const { return state().modified; }
    void setModified(bool modified) { set(&S::modified, modified); }

    /// Whether the record reaches into [first, second); touching isn't enough.
    bool intersects(int first, int second) const { return second > start() && first < end(); }

    /// Widens `range` to take in this record; false, and no change, when they don't overlap.
    bool extendRange(QPair<int, int>& range) const {
        if (range.second <= start() || range.first >= end())
            return false;
        range.first = std::min(range.first, start());
        range.second = std::max(range.second, end());
        return true;
    }

    /// Widens `range` to take in both records; false, and no change, when they don't overlap.
    bool extendRangeWith(QPair<int, int>& range, const PassageRecord& other) const {
        if (!sharesStateOrOverlaps(other))
            return false;
        range.first = std::min({range.first, start(), other.start()});
        range.second = std::max({range.second, end(), other.end()});
        return true;
    }

    QVariant computedValue(int) const { return this->isValid(); }

protected:
    PassageRecord() = default;
    explicit PassageRecord(S* newState) : Base(newState) { writableState().dataValid = true; }
    PassageRecord(const QJsonObject& json, const char* queryId) : Base(json, queryId) {
        S& s = writableState();
        s.end = s.start + s.length;
        s.dataValid = this->parsedOk();
    }
    /// A copy cut to a window, with a state of its own.
    PassageRecord(const PassageRecord& other, int sourceOffset, int windowLength) : Base(other) {
        detach();
        passage::clip(writableState(), sourceOffset, windowLength);
    }

    /// Touching isn't enough.
    bool sharesStateOrOverlaps(const PassageRecord& other) const {
        return this->m_state == other.m_state || (other.end() > start() && other.start() < end());
    }

    /// Whether the record was read or made whole and names the answer that it lies in.
    bool isPlaced() const {
        return this->parsedOk() && state().dataValid && sourceId() >= 1 && questionId() >= 1;
    }
};
