#pragma once

#include "models/PassageModel.h"
#include "records/Highlight.h"
#include "records/Kerno.h"

extern template class IModelList<Highlight, int, HighlightField>;
extern template class PassageModel<Highlight, HighlightField>;

/// The stripes beside a text.
class HighlightsModel : public PassageModel<Highlight, HighlightField> {
    Q_OBJECT
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId NOTIFY questionIdChanged)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)
    Q_PROPERTY(int columns READ columns NOTIFY columnsChanged)
    Q_PROPERTY(double lineHeight READ lineHeight WRITE setLineHeight NOTIFY lineHeightChanged)

public:
    enum Role {
        TitleRole = static_cast<int>(HighlightField::isValid) + 1  ///< title of the highlight's kerno
    };

    explicit HighlightsModel(TextGeometry* textEdit, DataHelper* helper, QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Number of columns that the stripes need; at least 1.
    int columns() const { return m_columns; }
    double lineHeight() const { return m_lineHeight; }
    void setLineHeight(double value);

    /// For the tracker of edits; does nothing on a read-only text.
    void setHighlights(const QList<Highlight>& list, int sourceId, int questionId);

signals:
    void questionIdChanged();
    void sourceIdChanged();
    void columnsChanged();
    void lineHeightChanged();
    void dataFetched(QList<Highlight> data, int sourceId, int questionId);
    /// Follows every replacement of the rows, also by an empty list.
    void modelReady(int sourceId, int questionId, int sourceOffset, int sourceLength);
    void highlightAdded(Highlight highlight, QPair<int, int> affectedRange);
    void highlightRemoved(Highlight highlight, QPair<int, int> affectedRange);
    void colorsChanged();

public slots:
    void reload() { fetchRows(); }
    void delayedReload();
    void delayedUpdatePositions();
    void updatePositions(bool notifyChanges = true) { layOutRows(notifyChanges); }
    void doReloadData(QList<Highlight> list, int sourceId, int questionId);
    void onHighlightSaved(Highlight highlight) { passageSaved(highlight); }
    void onHighlightDeleted(Highlight highlight) { passageDeleted(highlight); }
    void onBatchHighlightChanged(QSet<int> sources, QSet<int> questions) { batchChanged(sources, questions); }
    void updateReadOnly(bool ro) { setReadOnly(ro); }
    void maybeReloadData(int sourceId, int questionId) { bulkChangeFinished(sourceId, questionId); }
    void kernoColorChanged(Kerno kerno);

protected:
    QString windowQuery() const override;
    void layOut(QList<Highlight>& highlights, int changedRow) override;
    QVector<int> positionRoles() const override;
    void announceLayout() override;
    const char* shortName() const override { return "HM"; }
    void emitSourceIdChanged() override { emit sourceIdChanged(); }
    void emitQuestionIdChanged() override { emit questionIdChanged(); }
    void emitDataFetched(const QList<Highlight>& list, int sourceId, int questionId) override;
    void emitModelReady() override;
    void emitAdded(const Highlight& highlight, const QPair<int, int>& affectedRange) override;
    void emitRemoved(const Highlight& highlight, const QPair<int, int>& affectedRange) override;

private:
    int m_columns = 1;
    int m_laidOutColumns = 1;
    double m_lineHeight = 0;
};
