#pragma once

#include "models/QuestionAnswerModelBase.h"
#include "models/TextLoader.h"

#include <QSet>

/// Every answer of the project. After a project was opened the texts arrive source by source, those of a
/// shown source first; until then the rows are fewer. What asks for the answers of one source gets them all
/// the same, read at that moment. What goes over all rows needs `readAllTexts`, or waits with
/// `KRNFile::whenTextsAreHere`.
class QuestionAnswerMainModel : public QuestionAnswerModelBase {
    Q_OBJECT

public:
    explicit QuestionAnswerMainModel(DataHelper* helper, QObject* parent = nullptr);

    /// The first answer with both ids, or an empty record.
    QuestionAnswer answer(int sourceId, int questionId);
    /// Every answer of a source, in row order.
    QList<QuestionAnswer> answers(int sourceId);
    /// The same of those that are here.
    QList<QuestionAnswer> arrivedAnswers(int sourceId) const;
    /// The source of a row, without a copy of the record; -1 out of range.
    int sourceIdAt(int row) const;
    /// Lets the texts of this source, which is shown, come before all others.
    void prefer(int sourceId);
    /// Source id to the length of all its answers' plain text, of those that are here.
    QHash<int, int> lengthsBySource() const;
    /// A part of an answer; empty when there is none, when `start` lies outside it, or for a `length` of 0.
    QuestionAnswer partialAnswer(int sourceId, int questionId, int start, int length);

    /// Number of sources of which all texts are here, will be here, and could not be read.
    int textsHere() const { return m_loader.hereCount(); }
    int textsExpected() const { return m_loader.expectedCount(); }
    int textsFailed() const { return m_loader.failedCount(); }
    bool areTextsHere() const { return !isLoading() && textsFailed() == 0; }
    /// Whether texts may still come by themselves.
    bool isLoading() const { return m_startsSoon || m_loader.isLoading(); }
    /// Reads the texts of one source, or of all sources, that are not here yet. Blocks. False when one could
    /// not be read.
    bool readTexts(int sourceId);
    bool readAllTexts();
    void retryFailedTexts() { m_loader.retryFailed(); }

    /// For one that may still be on its way, too.
    bool removeByKey(int answerId);
    void removeByKeys(const QList<int>& answerIds);

signals:
    void modelAdded(QuestionAnswer model);
    void modelUpdated(QuestionAnswer model);
    /// The numbers of texts have changed.
    void textsProgressed();
    /// No text comes any more by itself. `initialDataSet` follows when there are any.
    void textsFinished();

public slots:
    void refreshAsync() override;

protected:
    void onModelAdded(int row, const QuestionAnswer& answer) override;
    void onModelUpdated(int row, const QuestionAnswer& answer, const QVector<int>& changedRoles) override;
    void onFileClosed() override;

private:
    void startLoading();
    void takeTexts(int sourceId, const QList<QuestionAnswer>& answers);
    void onTextsFinished();

    /// A source has few answers, so its question is sought among them.
    RowIndex<QuestionAnswer, int> m_bySource;
    TextLoader m_loader;
    bool m_startsSoon = false;
    bool m_takesTexts = false;
    int m_shownSource = 0;
    /// Answers that a notification brought while texts were arriving. It is never older than what arrives.
    QSet<int> m_notified;
};
