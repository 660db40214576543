#include "records/Memo.h"

#include "records/Passage.h"

template class Record<Memo, int, MemoField, MemoState, QExplicitlySharedDataPointer>;

const std::vector<FieldRow<MemoState>>& Memo::rows() {
    using S = MemoState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("memoId"), &S::memoId, -1},
        {258, QStringLiteral("sourceId"), QStringLiteral("sourceId"), &S::sourceId, 0},
        {259, QStringLiteral("questionId"), QStringLiteral("questionId"), &S::questionId, 0},
        {260, QStringLiteral("content"), QStringLiteral("content"), &S::content, {}},
        {261, QStringLiteral("start"), QStringLiteral("start"), &S::start, 0},
        {262, QStringLiteral("length"), QStringLiteral("length"), &S::length, 0},
        {263, QStringLiteral("end"), QStringLiteral("end"), &S::end, 0, LocalOnly},
        {264, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {265, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
        {266, QStringLiteral("y1"), QStringLiteral("y1"), &S::y1, 0, LocalOnly},
        {267, QStringLiteral("y2"), QStringLiteral("y2"), &S::y2, 0, LocalOnly},
        {268, QStringLiteral("isValid"), QStringLiteral("isValid"), Computed{FieldType::Boolean}, false, LocalOnly},
    };
    return table;
}

Memo::Memo() = default;

Memo::Memo(const QJsonObject& json, const char* queryId) : Record(json, queryId) {
    State& s = writableState();
    s.end = s.start + s.length;
    s.dataValid = parsedOk();
}

Memo::Memo(int memoId, int sourceId, int questionId, const QString& content, int start, int length, int end, const QString& author, const QDateTime& timestamp, int y1, int y2) : Record(new State) {
    State& s = writableState();
    s.memoId = memoId;
    s.sourceId = sourceId;
    s.questionId = questionId;
    s.content = content;
    s.start = start;
    s.length = length;
    s.end = end;
    s.author = author;
    s.timestamp = timestamp;
    s.y1 = y1;
    s.y2 = y2;
    s.dataValid = true;
}

bool Memo::isValid() const {
    return parsedOk() && state().dataValid && sourceId() >= 1 && questionId() >= 1;
}

Memo::Memo(const Memo& other, int sourceOffset, int windowLength) : Record(other) {
    detach();
    passage::clip(writableState(), sourceOffset, windowLength);
}

void Memo::setStart(int start) {
    State& s = writableState();
    s.start = start;
    s.end = s.start + s.length;
}

void Memo::setLength(int length) {
    State& s = writableState();
    s.length = length;
    s.end = s.start + s.length;
    s.dataValid = length > 0;
    setParsedOk(length > 0);
}

bool Memo::extendRange(QPair<int, int>& range) const {
    return passage::extendRange(*this, range);
}

bool Memo::extendRangeWith(QPair<int, int>& range, const Memo& other) const {
    return passage::extendRangeWith(*this, m_state == other.m_state, range, other);
}
