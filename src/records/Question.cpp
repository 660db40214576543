#include "records/Question.h"

template class Record<Question, int, QuestionField, QuestionState, QSharedDataPointer>;

const std::vector<FieldRow<QuestionState>>& Question::rows() {
    using S = QuestionState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("questionId"), &S::questionId, -1},
        {258, QStringLiteral("question"), QStringLiteral("question"), &S::question, {}},
        {259, QStringLiteral("questionOrder"), QStringLiteral("questionOrder"), &S::questionOrder, 0},
    };
    return table;
}

Question::Question() = default;

Question::Question(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

Question::Question(int questionId, const QString& question, int questionOrder) : Record(new State) {
    State& s = writableState();
    s.questionId = questionId;
    s.question = question;
    s.questionOrder = questionOrder;
}

bool Question::isValid() const {
    return parsedOk();
}
