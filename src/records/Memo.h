#pragma once

#include "records/Passage.h"

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

struct MemoState : PassageState {
    int memoId = -1;
    QString content;
};

class Memo;
extern template class Record<Memo, int, MemoField, MemoState, QExplicitlySharedDataPointer>;

/// A note anchored to a passage.
class Memo : public PassageRecord<Memo, MemoField, MemoState> {
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
    Memo(int memoId, int sourceId, int questionId, const QString& content, int start, int length, int end,
         const QString& author, const QDateTime& timestamp, int y1, int y2);

    /// A copy cut to a window of loaded text and relative to it, as for highlights.
    Memo(const Memo& other, int sourceOffset, int windowLength);

    static wire::Record record() { return wire::Record::Memo; }
    static const std::vector<FieldRow<MemoState>>& rows();

    bool isValid() const override;
    int id() const override { return memoId(); }

    int memoId() const { return state().memoId; }
    void setMemoId(int value) { set(&State::memoId, value); }
    QString content() const { return state().content; }
    void setContent(const QString& value) { set(&State::content, value); }
};

Q_DECLARE_METATYPE(Memo)
Q_DECLARE_TYPEINFO(Memo, Q_MOVABLE_TYPE);
