#pragma once

#include "records/Record.h"

/// Numbers of the fields of `Question`; also the item roles of its models.
enum class QuestionField : int { questionId = firstFieldNumber, question, questionOrder };

struct QuestionState : QSharedData {
    int questionId = -1;
    QString question;
    int questionOrder = 0;
};

class Question;
extern template class Record<Question, int, QuestionField, QuestionState, QSharedDataPointer>;

/// A structured question; every source has one answer to each.
class Question : public Record<Question, int, QuestionField, QuestionState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId)
    Q_PROPERTY(QString question READ question WRITE setQuestion)
    Q_PROPERTY(int questionOrder READ questionOrder WRITE setQuestionOrder)

public:
    Question();
    Question(const QJsonObject& json, const char* queryId);
    Question(int questionId, const QString& question, int questionOrder);

    static wire::Record record() { return wire::Record::Question; }
    static const std::vector<FieldRow<QuestionState>>& rows();

    bool isValid() const override;
    int id() const override { return questionId(); }

    int questionId() const { return state().questionId; }
    void setQuestionId(int value) { set(&State::questionId, value); }
    QString question() const { return state().question; }
    void setQuestion(const QString& value) { set(&State::question, value); }
    int questionOrder() const { return state().questionOrder; }
    void setQuestionOrder(int value) { set(&State::questionOrder, value); }
};

Q_DECLARE_METATYPE(Question)
Q_DECLARE_TYPEINFO(Question, Q_MOVABLE_TYPE);
