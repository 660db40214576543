#include "records/Memo.h"

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
        {268, QStringLiteral("isValid"), QStringLiteral("isValid"), Computed{FieldType::Boolean}, false,
         LocalOnly},
    };
    return table;
}

Memo::Memo() = default;

Memo::Memo(const QJsonObject& json, const char* queryId) : PassageRecord(json, queryId) {}

Memo::Memo(int memoId, int sourceId, int questionId, const QString& content, int start, int length, int end,
           const QString& author, const QDateTime& timestamp, int y1, int y2)
    : PassageRecord(new State) {
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
}

bool Memo::isValid() const {
    return isPlaced();
}

Memo::Memo(const Memo& other, int sourceOffset, int windowLength)
    : PassageRecord(other, sourceOffset, windowLength) {}
