#pragma once

#include "records/Passage.h"

/// Numbers of the fields of `Highlight`; also the item roles of its models.
enum class HighlightField : int {
    highlightId = firstFieldNumber,
    kernoId,
    sourceId,
    questionId,
    color,
    start,
    length,
    end,
    author,
    timestamp,
    column,
    y1,
    y2,
    overlapping,
    isValid
};

struct HighlightState : PassageState {
    int highlightId = -1;
    int kernoId = -1;
    QColor color;
    int column = 0;
    bool overlapping = false;
};

class Highlight;
extern template class Record<Highlight, int, HighlightField, HighlightState, QExplicitlySharedDataPointer>;

/// A passage coded into a kerno. Positions count characters of the answer's plain text; [start, end) is half
/// open.
class Highlight : public PassageRecord<Highlight, HighlightField, HighlightState> {
    Q_GADGET
    Q_PROPERTY(int highlightId READ highlightId WRITE setHighlightId)
    Q_PROPERTY(int kernoId READ kernoId WRITE setKernoId)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId)
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId)
    Q_PROPERTY(QColor color READ color WRITE setColor)
    Q_PROPERTY(int start READ start WRITE setStart)
    Q_PROPERTY(int length READ length WRITE setLength)
    Q_PROPERTY(int end READ end)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)
    Q_PROPERTY(int column READ column WRITE setColumn)
    Q_PROPERTY(int y1 READ y1 WRITE setY1)
    Q_PROPERTY(int y2 READ y2 WRITE setY2)
    Q_PROPERTY(bool overlapping READ overlapping WRITE setOverlapping)
    Q_PROPERTY(bool isValid READ isValid)

public:
    Highlight();
    Highlight(const QJsonObject& json, const char* queryId);
    Highlight(int highlightId, int kernoId, int sourceId, int questionId, const QColor& color, int start,
              int length, int end, const QString& author, const QDateTime& timestamp, int column, int y1,
              int y2, bool overlapping);

    /// A copy cut to a window of loaded text and relative to it, with a state of its own. `windowLength` -1
    /// stands for no end.
    Highlight(const Highlight& other, int sourceOffset, int windowLength);

    static wire::Record record() { return wire::Record::Highlight; }
    static const std::vector<FieldRow<HighlightState>>& rows();

    bool isValid() const override;
    int id() const override { return highlightId(); }

    int highlightId() const { return state().highlightId; }
    void setHighlightId(int value) { set(&State::highlightId, value); }
    int kernoId() const { return state().kernoId; }
    void setKernoId(int value) { set(&State::kernoId, value); }
    QColor color() const { return state().color; }
    void setColor(const QColor& value) { set(&State::color, value); }
    int column() const { return state().column; }
    void setColumn(int value) { set(&State::column, value); }
    bool overlapping() const { return state().overlapping; }
    void setOverlapping(bool value) { set(&State::overlapping, value); }

    /// Whether both share their state or overlap; touching isn't enough.
    bool overlaps(const Highlight& other) const { return sharesStateOrOverlaps(other); }
};

/// The one order of highlights: start ascending, and on equal start the one that ends later first.
bool highlightLessThan(const Highlight& a, const Highlight& b);

Q_DECLARE_METATYPE(Highlight)
Q_DECLARE_TYPEINFO(Highlight, Q_MOVABLE_TYPE);
