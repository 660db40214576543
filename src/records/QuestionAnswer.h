#pragma once

#include "records/AnswerText.h"
#include "records/Record.h"

#include <memory>

class SimpleCipher;

/// Numbers of the fields of `QuestionAnswer`; also the item roles of its models.
enum class QuestionAnswerField : int {
    answerId = firstFieldNumber,
    questionId,
    sourceId,
    author,
    answer,
    timestamp,
    isHtml
};

struct QuestionAnswerState : QSharedData {
    int answerId = -1;
    int questionId = -1;
    int sourceId = -1;
    QString author;
    QString answer;  ///< as it came from the service; `text` holds what is made of it
    QDateTime timestamp;
    int offset = 0;
    std::shared_ptr<const AnswerText> text;  ///< never null; copies share it
    QuestionAnswerState();
};

class QuestionAnswer;
extern template class Record<QuestionAnswer, int, QuestionAnswerField, QuestionAnswerState,
                             QSharedDataPointer>;

/// The text of a source, as its answer to one question. All positions in a project count UTF-16 units of
/// `plainAnswer()`.
class QuestionAnswer
    : public Record<QuestionAnswer, int, QuestionAnswerField, QuestionAnswerState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int answerId READ answerId WRITE setAnswerId)
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)
    Q_PROPERTY(QString answer READ answer)
    Q_PROPERTY(int offset READ offset)
    Q_PROPERTY(QString question READ question)
    Q_PROPERTY(QString sourceTitle READ sourceTitle)
    Q_PROPERTY(bool isHtml READ isHtml)

public:
    QuestionAnswer();

    /// Deciphers the text with `decoder` when it has a key, or, without a decoder, as the open project says.
    QuestionAnswer(const QJsonObject& json, const char* queryId, SimpleCipher* decoder = nullptr);
    QuestionAnswer(int answerId, int questionId, int sourceId, const QString& author, const QString& answer,
                   const QDateTime& timestamp);

    /// The part [start, start + length) of another answer; `offset` tells where it lies in the whole.
    QuestionAnswer(const QuestionAnswer& other, int start, int length);

    /// The same part as plain text with marks, which count from the start of the part. For showing; it is cut
    /// out of the plain text, so the emphasis of the whole is gone.
    QuestionAnswer markedPart(int start, int length, const AnswerText::Marks& marks) const;

    static wire::Record record() { return wire::Record::QuestionAnswer; }
    static const std::vector<FieldRow<QuestionAnswerState>>& rows();

    bool isValid() const override;
    int id() const override { return answerId(); }
    QStringList mutationArguments() const override;
    QVariant fieldValue(int role, bool forService) const override;
    QVariant computedValue(int) const { return isHtml(); }

    int answerId() const { return state().answerId; }
    void setAnswerId(int value) { set(&State::answerId, value); }
    int questionId() const { return state().questionId; }
    void setQuestionId(int value) { set(&State::questionId, value); }
    int sourceId() const { return state().sourceId; }
    void setSourceId(int value) { set(&State::sourceId, value); }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }

    /// The whole document as HTML: what is shown.
    QString answer() const { return state().text->serialized(); }

    /// Cleans the text up and prepares it; every import and edit passes through here.
    void setAnswer(const QString& text);

    /// The text as it is stored in the project, before any cipher.
    QString storedAnswer() const { return state().text->stored(); }
    /// The text in all its forms; lives as long as a copy of the answer.
    const AnswerText& text() const { return *state().text; }

    /// The text on which positions count.
    QString plainAnswer() const { return state().text->plain(); }

    /// The plain text with `<b>`, `<i>` and `<u>`.
    QString richAnswer() const { return state().text->document().richText(); }

    /// Length of the plain text, in UTF-16 units.
    int answerLength() const { return state().text->length(); }

    /// Where a part begins in the whole answer's plain text; 0 for a whole answer.
    int offset() const { return state().offset; }

    bool isHtml() const { return state().text->isHtml(); }

    /// Looked up in the open project; empty without one.
    QString question() const;
    QString sourceTitle() const;

private:
    void readText(const QJsonObject& json, SimpleCipher* decoder);
};

Q_DECLARE_METATYPE(QuestionAnswer)
Q_DECLARE_TYPEINFO(QuestionAnswer, Q_MOVABLE_TYPE);
