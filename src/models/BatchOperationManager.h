#pragma once

#include <QList>
#include <QObject>
#include <QPair>
#include <QRecursiveMutex>

/// Tells that a bulk change is running, so that listeners keep quiet and catch up once at its end. Its state
/// may be read from any thread; it changes, and signals fire, on the main thread.
class BatchOperationManager : public QObject {
    Q_OBJECT

public:
    explicit BatchOperationManager(QObject* parent = nullptr);

    /// An answer's text is being rewritten.
    void startAnswerEdit(int sourceId, int questionId);
    void finishAnswerEdit(int sourceId, int questionId);

    /// A batch of highlights of one answer is being written.
    void startHighlightBatch(int sourceId, int questionId);
    void finishHighlightBatch(int sourceId, int questionId);

    /// A bulk change of kernos is running. The start signals only when none was running.
    void startKernoBatch();
    void finishKernoBatch();

    void startMetadataBatch();
    void finishMetadataBatch();
    void startSourcesBatch();
    void finishSourcesBatch();

    bool isMetadataBatch() const;
    bool isSourcesBatch() const;

    /// Whether nothing runs that concerns this answer.
    bool isIdleFor(int sourceId, int questionId) const;

    /// Whether neither a bulk change of kernos nor any answer edit or highlight batch runs.
    bool isIdle() const;

    /// Whether a change of a highlight or memo of this answer is announced one by one.
    bool shouldNotify(int sourceId, int questionId) const { return isIdleFor(sourceId, questionId); }

signals:
    void highlightsBatchUpdateFinished(int sourceId, int questionId);
    void editAnswerFinished(int sourceId, int questionId);
    void aboutToBatchUpdateKernos();
    void batchUpdateKernosFinished();
    void metadataBatchUpdateFinished();
    void sourcesBatchUpdateFinished();

private:
    using Pair = QPair<int, int>;

    void start(QList<Pair>& running, const Pair& pair);
    bool finish(QList<Pair>& running, const Pair& pair);
    void start(bool& flag);
    bool finish(bool& flag);

    mutable QRecursiveMutex m_mutex;
    QList<Pair> m_answerEdits;
    QList<Pair> m_highlightBatches;
    bool m_kernoBatch = false;
    bool m_metadataBatch = false;
    bool m_sourcesBatch = false;
};
