#pragma once

#include "models/PendingRead.h"
#include "models/QuestionAnswerModelBase.h"

/// Every answer of the project.
class QuestionAnswerMainModel : public QuestionAnswerModelBase {
    Q_OBJECT

public:
    explicit QuestionAnswerMainModel(DataHelper* helper, QObject* parent = nullptr);

    /// The first row with both ids, or an empty record.
    QuestionAnswer answer(int sourceId, int questionId) const;
    /// Every answer of a source, in row order.
    QList<QuestionAnswer> answers(int sourceId) const;
    /// Source id to the length of all its answers' plain text.
    QHash<int, int> lengthsBySource() const;
    /// A part of an answer; empty when there is none, when `start` lies outside it, or for a `length` of 0.
    QuestionAnswer partialAnswer(int sourceId, int questionId, int start, int length) const;

signals:
    void dataFetched(QList<QuestionAnswer> data);
    void modelAdded(QuestionAnswer model);
    void modelUpdated(QuestionAnswer model);

public slots:
    void refreshAsync() override;
    void onDataFetched(QList<QuestionAnswer> data);

protected:
    void onFileClosed() override;
    void onModelAdded(int row, const QuestionAnswer& answer) override;
    void onModelUpdated(int row, const QuestionAnswer& answer, const QVector<int>& changedRoles) override;

private:
    PendingRead m_read;
    RowIndex<QuestionAnswer, int>
        m_bySource;  ///< a source has few answers, so its question is sought among them
};
