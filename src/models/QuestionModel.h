#pragma once

#include "models/IModelList.h"
#include "records/Question.h"

extern template class IModelList<Question, int, QuestionField>;

/// The questions of the project, in their order.
class QuestionModel : public IModelList<Question, int, QuestionField> {
    Q_OBJECT

public:
    explicit QuestionModel(DataHelper* helper, QObject* parent = nullptr);

    Q_INVOKABLE Question get(int index) const { return at(index); }
    using IModelListBase::get;

    /// The text of a question; empty for an unknown id.
    QString questionText(int questionId) const;
    /// The place of a question among the others; 0 for an unknown id.
    int questionOrder(int questionId) const;
    /// Whether a question has exactly this text.
    bool hasQuestion(const QString& text) const;
    /// The highest order of all; 0 without questions.
    int maxQuestionOrder() const;

signals:
    void requestSortInternal();
    void questionsOrderChanged();

public slots:
    /// Moves rows until they stand by their order. Rows move; the model isn't reset.
    void sortInternal();

protected:
    /// Sorted by order; equal ones as they came.
    bool fetchAll(QList<Question>& list) override;
    int insertionRow(const Question& question) const override;
    void onModelUpdated(int row, const Question& question, const QVector<int>& changedRoles) override;
};
