#pragma once

#include "records/Record.h"

#include <QPair>

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

struct HighlightState : QSharedData {
    int highlightId = -1;
    int kernoId = -1;
    int sourceId = -1;
    int questionId = -1;
    QColor color;
    int start = -1;
    int length = -1;
    int end = -1;
    QString author;
    QDateTime timestamp;
    int column = 0;
    int y1 = 0;
    int y2 = 0;
    bool overlapping = false;
    bool dataValid = false;
    bool modified = false;
};

class Highlight;
extern template class Record<Highlight, int, HighlightField, HighlightState, QExplicitlySharedDataPointer>;

/// A passage coded into a kerno. Positions count characters of the answer's plain text; [start, end) is half open.
class Highlight : public Record<Highlight, int, HighlightField, HighlightState, QExplicitlySharedDataPointer> {
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
    Highlight(int highlightId, int kernoId, int sourceId, int questionId, const QColor& color, int start, int length, int end, const QString& author, const QDateTime& timestamp, int column, int y1, int y2, bool overlapping);

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
    int sourceId() const { return state().sourceId; }
    void setSourceId(int value) { set(&State::sourceId, value); }
    int questionId() const { return state().questionId; }
    void setQuestionId(int value) { set(&State::questionId, value); }
    QColor color() const { return state().color; }
    void setColor(const QColor& value) { set(&State::color, value); }
    int start() const { return state().start; }
    int length() const { return state().length; }
    int end() const { return state().end; }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }
    int column() const { return state().column; }
    void setColumn(int value) { set(&State::column, value); }
    int y1() const { return state().y1; }
    void setY1(int value) { set(&State::y1, value); }
    int y2() const { return state().y2; }
    void setY2(int value) { set(&State::y2, value); }
    bool overlapping() const { return state().overlapping; }
    void setOverlapping(bool value) { set(&State::overlapping, value); }

    /// Keeps `end` in step with start and length.
    void setStart(int start);
    /// Keeps `end` in step; the record counts as readable only with a length above 0.
    void setLength(int length);

    /// Gives this copy a state of its own; until then a setter writes through all copies.
    void detach() { m_state.detach(); }

    /// Set by the tracking of edits when it moved or resized the record.
    bool isModified() const { return state().modified; }
    void setModified(bool modified) { set(&State::modified, modified); }

    /// Whether both share their state or overlap; touching isn't enough.
    bool overlaps(const Highlight& other) const;

    /// Whether the record reaches into [first, second); touching isn't enough.
    bool intersects(int first, int second) const { return second > start() && first < end(); }

    /// Widens `range` to take in this record; false, and no change, when they don't overlap.
    bool extendRange(QPair<int, int>& range) const;

    /// Widens `range` to take in both records; false, and no change, when they don't overlap.
    bool extendRangeWith(QPair<int, int>& range, const Highlight& other) const;

    QVariant computedValue(int) const { return isValid(); }
};

/// The one order of highlights: start ascending, and on equal start the one that ends later first.
bool highlightLessThan(const Highlight& a, const Highlight& b);

Q_DECLARE_METATYPE(Highlight)
Q_DECLARE_TYPEINFO(Highlight, Q_MOVABLE_TYPE);
