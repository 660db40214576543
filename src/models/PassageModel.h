#pragma once

#include "models/IModelList.h"
#include "models/PendingRead.h"
#include "models/TextGeometry.h"

#include <QPair>
#include <QSet>

class DelayedSignalTrigger;
class QTimer;

/// What the models beside a text have in common: the highlights or memos of one answer, clipped to the window
/// of it that is shown, and relative to that window. On a read-only text the model fetches its rows and
/// follows the project's notifications; on an editable one the tracker of edits hands them over.
template <typename P, typename F> class PassageModel : public IModelList<P, int, F> {
public:
    using Rows = QList<ModelRow<P>*>;

    /// `textEdit` isn't owned; it may be null, then the model stays empty.
    PassageModel(TextGeometry* textEdit, DataHelper* helper, QObject* parent);

    int sourceId() const { return m_sourceId; }
    void setSourceId(int sourceId);
    int questionId() const { return m_questionId; }
    void setQuestionId(int questionId);
    int sourceOffset() const { return m_sourceOffset; }
    int sourceLength() const { return m_sourceLength; }
    bool isReadOnly() const { return m_readOnly; }

    /// Shows another answer, or another window of it. A `length` of -1 has no end.
    void setSource(int sourceId, int questionId, int offset, int length);

    void refreshAsync() override { fetchRows(); }

protected:
    /// Connects what all kinds of passages share; to be called by the constructor of `model`, which is this.
    template <typename Model> void connectShared(Model* model);

    /// Fetches the rows anew, unless the text is editable or a bulk change of the answer runs.
    void fetchRows();
    /// Takes a list that was handed over for an editable text.
    void takeList(const QList<P>& list, int sourceId, int questionId);
    void takeFetched(QList<P> list, int sourceId, int questionId);
    void passageSaved(const P& passage);
    void passageDeleted(const P& passage);
    void batchChanged(const QSet<int>& sources, const QSet<int>& questions);
    void bulkChangeFinished(int sourceId, int questionId);
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }
    void layOutRows(bool notifyChanges, int changedRow = allRows);

    /// One timer for all models of a kind; it stays connected to the first model that needed it.
    void restartPositionTimer(QPointer<QTimer>& shared);
    DelayedSignalTrigger* reloadTrigger() const { return m_reloadTrigger; }

    TextGeometry* textEdit() const { return m_item ? m_textEdit : nullptr; }
    bool isIdleFor(int sourceId, int questionId) const;

    void onModelRemoved(const P& passage, int row) override;
    void onFileClosed() override;

    /// The read of the window's records.
    virtual QString windowQuery() const = 0;
    static constexpr int allRows = -1;
    static constexpr int noRow = -2;
    /// Writes the positions into the records. Where a single row has come or gone while the text stays, the
    /// others keep the lines that they have: the text is asked for `changedRow` alone.
    virtual void layOut(QList<P>& passages, int changedRow = allRows) = 0;
    /// The roles that `layOut` writes.
    virtual QVector<int> positionRoles() const = 0;
    /// Announces what the last `layOut` changed beside the rows.
    virtual void announceLayout() {}
    virtual const char* shortName() const = 0;

    virtual void emitSourceIdChanged() = 0;
    virtual void emitQuestionIdChanged() = 0;
    virtual void emitDataFetched(const QList<P>& list, int sourceId, int questionId) = 0;
    virtual void emitModelReady() = 0;
    virtual void emitAdded(const P& passage, const QPair<int, int>& affectedRange) = 0;
    virtual void emitRemoved(const P& passage, const QPair<int, int>& affectedRange) = 0;

private:
    void fetch();
    void takeReply(const QJsonObject& data);
    void readFailed();
    bool isCurrent(int sourceId, int questionId) const {
        return sourceId == m_sourceId && questionId == m_questionId;
    }

    TextGeometry* m_textEdit;
    QPointer<QObject> m_item;
    DelayedSignalTrigger* m_reloadTrigger;
    int m_questionId = -1;
    int m_sourceId = -1;
    int m_sourceOffset = 0;
    int m_sourceLength = -1;
    bool m_readOnly = false;
    PendingRead m_read;
    bool m_rowsAreCurrent = false;  ///< the rows are of the window above
};
