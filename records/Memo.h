#pragma once

#include "records/Record.h"

#include <QPair>

/// Numbers of the fields of `Memo`; also the item roles of its models.
enum class MemoField : int {
    memoId = firstFieldNumber,
    sourceId,
    questionId,
    content,
    start,
    length,
    end,
    author,
    timestamp,
    y1,
    y2,
    isValid
};

struct MemoState : QSharedData {
    int memoId = -1;
    int sourceId = -1;
    int questionId = -1;
    QString content;
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

class Memo;
extern template class Record<Memo, int, MemoField, MemoState, QExplicitlySharedDataPointer>;

/// A note anchored to a passage.
class Memo : public Record<Memo, int, MemoField, MemoState, QExplicitlySharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int memoId READ memoId WRITE setMemoId)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId)
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId)
    Q_PROPERTY(QString content READ content WRITE setContent)
    Q_PROPERTY(int start READ start WRITE setStart)
    Q_PROPERTY(int length READ length WRITE setLength)
    Q_PROPERTY(int end READ end)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)
    Q_PROPERTY(int y1 READ y1 WRITE setY1)
    Q_PROPERTY(int y2 READ y2 WRITE setY2)
    Q_PROPERTY(bool isValid READ isValid)

public:
    Memo();
    Memo(const QJsonObject& json, const char* queryId);
    Memo(int memoId, int sourceId, int questionId, const QString& content, int start, int length, int end, const QString& author, const QDateTime& timestamp, int y1, int y2);

    /// A copy cut to a window of loaded text and relative to it, as for highlights.
    Memo(const Memo& other, int sourceOffset, int windowLength);

    static wire::Record record() { return wire::Record::Memo; }
    static const std::vector<FieldRow<MemoState>>& rows();

    bool isValid() const override;
    int id() const override { return memoId(); }

    int memoId() const { return state().memoId; }
    void setMemoId(int value) { set(&State::memoId, value); }
    int sourceId() const { return state().sourceId; }
    void setSourceId(int value) { set(&State::sourceId, value); }
    int questionId() const { return state().questionId; }
    void setQuestionId(int value) { set(&State::questionId, value); }
    QString content() const { return state().content; }
    void setContent(const QString& value) { set(&State::content, value); }
    int start() const { return state().start; }
    int length() const { return state().length; }
    int end() const { return state().end; }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }
    int y1() const { return state().y1; }
    void setY1(int value) { set(&State::y1, value); }
    int y2() const { return state().y2; }
    void setY2(int value) { set(&State::y2, value); }

    /// Keeps `end` in step with start and length.
    void setStart(int start);
    /// Keeps `end` in step; the record counts as readable only with a length above 0.
    void setLength(int length);

    /// Gives this copy a state of its own; until then a setter writes through all copies.
    void detach() { m_state.detach(); }

    /// Set by the tracking of edits when it moved or resized the record.
    bool isModified() const { return state().modified; }
    void setModified(bool modified) { set(&State::modified, modified); }

    /// Whether the record reaches into [first, second); touching isn't enough.
    bool intersects(int first, int second) const { return second > start() && first < end(); }

    /// Widens `range` to take in this record; false, and no change, when they don't overlap.
    bool extendRange(QPair<int, int>& range) const;

    /// Widens `range` to take in both records; false, and no change, when they don't overlap.
    bool extendRangeWith(QPair<int, int>& range, const Memo& other) const;

    QVariant computedValue(int) const { return isValid(); }
};

Q_DECLARE_METATYPE(Memo)
Q_DECLARE_TYPEINFO(Memo, Q_MOVABLE_TYPE);
