#include "records/Highlight.h"

#include "records/Passage.h"

template class Record<Highlight, int, HighlightField, HighlightState, QExplicitlySharedDataPointer>;

const std::vector<FieldRow<HighlightState>>& Highlight::rows() {
    using S = HighlightState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("highlightId"), &S::highlightId, -1},
        {258, QStringLiteral("kernoId"), QStringLiteral("kernoId"), &S::kernoId, 0},
        {259, QStringLiteral("sourceId"), QStringLiteral("sourceId"), &S::sourceId, 0},
        {260, QStringLiteral("questionId"), QStringLiteral("questionId"), &S::questionId, 0},
        {261, QStringLiteral("color"), QStringLiteral("color"), &S::color, {}, NotCompared | NotSent},
        {262, QStringLiteral("start"), QStringLiteral("start"), &S::start, 0},
        {263, QStringLiteral("length"), QStringLiteral("length"), &S::length, 0},
        {264, QStringLiteral("end"), QStringLiteral("end"), &S::end, 0, LocalOnly},
        {265, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {266, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
        {267, QStringLiteral("column"), QStringLiteral("column"), &S::column, 0, LocalOnly},
        {268, QStringLiteral("y1"), QStringLiteral("y1"), &S::y1, 0, LocalOnly},
        {269, QStringLiteral("y2"), QStringLiteral("y2"), &S::y2, 0, LocalOnly},
        {270, QStringLiteral("overlapping"), QStringLiteral("overlapping"), &S::overlapping, false, LocalOnly},
        {271, QStringLiteral("isValid"), QStringLiteral("isValid"), Computed{FieldType::Boolean}, false, LocalOnly},
    };
    return table;
}

Highlight::Highlight() = default;

Highlight::Highlight(const QJsonObject& json, const char* queryId) : Record(json, queryId) {
    State& s = writableState();
    if (!json.value(wireName(HighlightField::color)).isString())
        s.color = Qt::black;
    s.end = s.start + s.length;
    s.dataValid = parsedOk();
}

Highlight::Highlight(int highlightId, int kernoId, int sourceId, int questionId, const QColor& color, int start, int length, int end, const QString& author, const QDateTime& timestamp, int column, int y1, int y2, bool overlapping) : Record(new State) {
    State& s = writableState();
    s.highlightId = highlightId;
    s.kernoId = kernoId;
    s.sourceId = sourceId;
    s.questionId = questionId;
    s.color = color;
    s.start = start;
    s.length = length;
    s.end = end;
    s.author = author;
    s.timestamp = timestamp;
    s.column = column;
    s.y1 = y1;
    s.y2 = y2;
    s.overlapping = overlapping;
    s.dataValid = true;
}

bool Highlight::isValid() const {
    return parsedOk() && state().dataValid && kernoId() >= 1 && sourceId() >= 1 && questionId() >= 1;
}

Highlight::Highlight(const Highlight& other, int sourceOffset, int windowLength) : Record(other) {
    detach();
    passage::clip(writableState(), sourceOffset, windowLength);
}

void Highlight::setStart(int start) {
    State& s = writableState();
    s.start = start;
    s.end = s.start + s.length;
}

void Highlight::setLength(int length) {
    State& s = writableState();
    s.length = length;
    s.end = s.start + s.length;
    s.dataValid = length > 0;
    setParsedOk(length > 0);
}

bool Highlight::extendRange(QPair<int, int>& range) const {
    return passage::extendRange(*this, range);
}

bool Highlight::extendRangeWith(QPair<int, int>& range, const Highlight& other) const {
    return passage::extendRangeWith(*this, m_state == other.m_state, range, other);
}

bool Highlight::overlaps(const Highlight& other) const {
    return m_state == other.m_state || (other.end() > start() && other.start() < end());
}

bool highlightLessThan(const Highlight& a, const Highlight& b) {
    return passage::lessThan(a, b);
}
