#pragma once

#include "models/QuestionAnswerModelBase.h"

class QuestionAnswerMainModel;

/// The answers of one source, taken from the model of all answers.
class QuestionAnswerModel : public QuestionAnswerModelBase {
    Q_OBJECT

public:
    explicit QuestionAnswerModel(DataHelper* helper, QObject* parent = nullptr);

protected:
    /// The model of all answers fetches.
    bool shouldRefreshOnOpen() const override { return false; }

private slots:
    void updateFromMainModel();
    void delayedUpdateFromMainModel();
    void onRowsInsertedInMainModel(const QModelIndex& parent, int first, int last);
    void onModelAddedToMainModel(QuestionAnswer answer);
    void onModelUpdatedInMainModel(QuestionAnswer answer);
    void onQuestionsOrderChanged();

private:
    QPointer<QuestionAnswerMainModel> m_mainModel;
    bool m_updatePending = false;
};
