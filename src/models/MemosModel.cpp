#include "models/MemosModel.h"

#include "link/ListReads.h"
#include "models/PassageRows.h"

template class PassageModel<Memo, MemoField>;

MemosModel::MemosModel(TextGeometry* textEdit, DataHelper* helper, QObject* parent)
    : PassageModel(textEdit, helper, parent) {
    connectShared(this);
    const ProjectEvents* events = project();
    if (!events)
        return;
    connect(events, &ProjectEvents::memoSaved, this, &MemosModel::onMemoSaved);
    connect(events, &ProjectEvents::memoDeleted, this, &MemosModel::onMemoDeleted);
    connect(events, &ProjectEvents::batchMemoSaved, this, &MemosModel::onBatchMemoChanged);
    connect(events, &ProjectEvents::batchMemoDeleted, this, &MemosModel::onBatchMemoChanged);
}

QHash<int, QByteArray> MemosModel::roleNames() const {
    QHash<int, QByteArray> names = PassageModel::roleNames();
    names.insert(TitleRole, "title");
    return names;
}

void MemosModel::setMemos(const QList<Memo>& list, int sourceId, int questionId) {
    takeList(list, sourceId, questionId);
}

void MemosModel::delayedReload() {
    reloadTrigger()->restart();
}

void MemosModel::delayedUpdatePositions() {
    static QPointer<QTimer> timer;
    restartPositionTimer(timer);
}

void MemosModel::doReloadData(QList<Memo> list, int sourceId, int questionId) {
    takeFetched(list, sourceId, questionId);
}

QString MemosModel::windowQuery() const {
    return reads::memosInWindow(sourceId(), questionId(), sourceOffset(), sourceLength());
}

void MemosModel::layOut(QList<Memo>& memos, int changedRow) {
    const TextGeometry* text = textEdit();
    for (int row = 0; row < memos.size(); ++row) {
        if (changedRow != allRows && changedRow != row)
            continue;
        Memo& memo = memos[row];
        memo.setY1(static_cast<int>(text->rectangleAt(memo.start()).y()));
        memo.setY2(static_cast<int>(text->rectangleAt(memo.end()).y() + text->lineHeight()));
    }
}

QVector<int> MemosModel::positionRoles() const {
    return {static_cast<int>(MemoField::y1), static_cast<int>(MemoField::y2)};
}

void MemosModel::emitDataFetched(const QList<Memo>& list, int sourceId, int questionId) {
    emit dataFetched(list, sourceId, questionId);
}

void MemosModel::emitModelReady() {
    emit modelReady(sourceId(), questionId(), sourceOffset(), sourceLength());
}

void MemosModel::emitAdded(const Memo& memo, const QPair<int, int>& affectedRange) {
    emit memoAdded(memo, affectedRange);
}

void MemosModel::emitRemoved(const Memo& memo, const QPair<int, int>& affectedRange) {
    emit memoRemoved(memo, affectedRange);
}
