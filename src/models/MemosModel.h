#pragma once

#include "models/PassageModel.h"
#include "records/Memo.h"

extern template class IModelList<Memo, int, MemoField>;
extern template class PassageModel<Memo, MemoField>;

/// The memo icons beside a text. Icons may lie over one another.
class MemosModel : public PassageModel<Memo, MemoField> {
    Q_OBJECT
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId NOTIFY questionIdChanged)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)

public:
    enum Role {
        TitleRole = static_cast<int>(MemoField::isValid) + 1  ///< always invalid: a memo belongs to no kerno
    };

    explicit MemosModel(TextGeometry* textEdit, DataHelper* helper, QObject* parent = nullptr);

    QHash<int, QByteArray> roleNames() const override;

    /// For the tracker of edits; does nothing on a read-only text.
    void setMemos(const QList<Memo>& list, int sourceId, int questionId);

signals:
    void questionIdChanged();
    void sourceIdChanged();
    void dataFetched(QList<Memo> data, int sourceId, int questionId);
    /// Follows every replacement of the rows, also by an empty list.
    void modelReady(int sourceId, int questionId, int sourceOffset, int sourceLength);
    void memoAdded(Memo memo, QPair<int, int> affectedRange);
    void memoRemoved(Memo memo, QPair<int, int> affectedRange);

public slots:
    void reload() { fetchRows(); }
    void delayedReload();
    void delayedUpdatePositions();
    void updatePositions(bool notifyChanges = true) { layOutRows(notifyChanges); }
    void doReloadData(QList<Memo> list, int sourceId, int questionId);
    void onMemoSaved(Memo memo) { passageSaved(memo); }
    void onMemoDeleted(Memo memo) { passageDeleted(memo); }
    void onBatchMemoChanged(QSet<int> sources, QSet<int> questions) { batchChanged(sources, questions); }
    void updateReadOnly(bool ro) { setReadOnly(ro); }
    void maybeReloadData(int sourceId, int questionId) { bulkChangeFinished(sourceId, questionId); }

protected:
    QString windowQuery() const override;
    void layOut(QList<Memo>& memos, int changedRow) override;
    QVector<int> positionRoles() const override;
    const char* shortName() const override { return "MM"; }
    void emitSourceIdChanged() override { emit sourceIdChanged(); }
    void emitQuestionIdChanged() override { emit questionIdChanged(); }
    void emitDataFetched(const QList<Memo>& list, int sourceId, int questionId) override;
    void emitModelReady() override;
    void emitAdded(const Memo& memo, const QPair<int, int>& affectedRange) override;
    void emitRemoved(const Memo& memo, const QPair<int, int>& affectedRange) override;
};
