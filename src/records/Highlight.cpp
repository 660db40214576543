#include "records/Highlight.h"

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
        {270, QStringLiteral("overlapping"), QStringLiteral("overlapping"), &S::overlapping, false,
         LocalOnly},
        {271, QStringLiteral("isValid"), QStringLiteral("isValid"), Computed{FieldType::Boolean}, false,
         LocalOnly},
    };
    return table;
}

Highlight::Highlight() = default;

Highlight::Highlight(const QJsonObject& json, const char* queryId) : PassageRecord(json, queryId) {
    if (!json.value(wireName(HighlightField::color)).isString())
        setColor(Qt::black);
}

Highlight::Highlight(int highlightId, int kernoId, int sourceId, int questionId, const QColor& color,
                     int start, int length, int end, const QString& author, const QDateTime& timestamp,
                     int column, int y1, int y2, bool overlapping)
    : PassageRecord(new State) {
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
}

bool Highlight::isValid() const {
    return isPlaced() && kernoId() >= 1;
}

Highlight::Highlight(const Highlight& other, int sourceOffset, int windowLength)
    : PassageRecord(other, sourceOffset, windowLength) {}

bool highlightLessThan(const Highlight& a, const Highlight& b) {
    return passage::lessThan(a, b);
}
