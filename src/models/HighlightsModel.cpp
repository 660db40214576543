#include "models/HighlightsModel.h"

#include "link/ListReads.h"
#include "models/KernoModel.h"
#include "models/PassageRows.h"
#include "models/StripeLayout.h"

template class PassageModel<Highlight, HighlightField>;

HighlightsModel::HighlightsModel(TextGeometry* textEdit, DataHelper* helper, QObject* parent)
    : PassageModel(textEdit, helper, parent) {
    connectShared(this);
    const ProjectEvents* events = project();
    if (!events)
        return;
    connect(events, &ProjectEvents::highlightSaved, this, &HighlightsModel::onHighlightSaved);
    connect(events, &ProjectEvents::highlightDeleted, this, &HighlightsModel::onHighlightDeleted);
    connect(events, &ProjectEvents::batchHighlightSaved, this, &HighlightsModel::onBatchHighlightChanged);
    connect(events, &ProjectEvents::batchHighlightDeleted, this, &HighlightsModel::onBatchHighlightChanged);
    if (KernoModel* kernos = events->kernoModel())
        connect(kernos, &KernoModel::kernoColorChanged, this, &HighlightsModel::kernoColorChanged);
}

QVariant HighlightsModel::data(const QModelIndex& index, int role) const {
    if (role != TitleRole)
        return PassageModel::data(index, role);
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    if (row < 0 || row >= items().size() || !project())
        return {};
    return project()->kernoById(items().at(row)->kernoId()).title();
}

QHash<int, QByteArray> HighlightsModel::roleNames() const {
    QHash<int, QByteArray> names = PassageModel::roleNames();
    names.insert(TitleRole, "title");
    return names;
}

void HighlightsModel::setLineHeight(double value) {
    if (m_lineHeight == value)
        return;
    m_lineHeight = value;
    updatePositions(true);
    qDebug() << "emit lineHeightChanged();";
    emit lineHeightChanged();
}

void HighlightsModel::setHighlights(const QList<Highlight>& list, int sourceId, int questionId) {
    takeList(list, sourceId, questionId);
}

void HighlightsModel::delayedReload() {
    reloadTrigger()->restart();
}

void HighlightsModel::delayedUpdatePositions() {
    static QPointer<QTimer> timer;
    restartPositionTimer(timer);
}

void HighlightsModel::doReloadData(QList<Highlight> list, int sourceId, int questionId) {
    takeFetched(list, sourceId, questionId);
}

void HighlightsModel::kernoColorChanged(Kerno kerno) {
    const QMutexLocker lock(&m_mutex);
    bool changed = false;
    for (int row = items().size() - 1; row >= 0; --row) {
        if (items().at(row)->kernoId() != kerno.kernoId())
            continue;
        items().at(row)->setColor(kerno.color());
        emitRowsChanged(row, row, {static_cast<int>(HighlightField::color)});
        changed = true;
    }
    if (changed)
        emit colorsChanged();
}

QString HighlightsModel::windowQuery() const {
    return reads::highlightsInWindow(sourceId(), questionId(), sourceOffset(), sourceLength());
}

void HighlightsModel::layOut(QList<Highlight>& highlights, int changedRow) {
    const TextGeometry* text = textEdit();
    const int textLength = text->textLength();
    QVector<StripeExtent> extents;
    extents.reserve(highlights.size());
    for (const Highlight& highlight : qAsConst(highlights)) {
        // What reaches beyond the text, and all after it, keeps its old place.
        if (highlight.end() > textLength)
            break;
        if (changedRow != allRows && changedRow != extents.size()) {
            extents.append({highlight.y1(), highlight.y2()});
            continue;
        }
        extents.append({static_cast<int>(text->rectangleAt(highlight.start()).y()),
                        static_cast<int>(text->rectangleAt(highlight.end()).y() + m_lineHeight)});
    }
    const StripeColumns stripes = stripeColumns(extents);
    for (int i = 0; i < extents.size(); ++i) {
        highlights[i].setY1(extents.at(i).y1);
        highlights[i].setY2(extents.at(i).y2);
        highlights[i].setColumn(stripes.columns.at(i));
    }
    m_laidOutColumns = stripes.count;
}

QVector<int> HighlightsModel::positionRoles() const {
    return {static_cast<int>(HighlightField::y1), static_cast<int>(HighlightField::y2),
            static_cast<int>(HighlightField::column)};
}

void HighlightsModel::announceLayout() {
    if (m_columns == m_laidOutColumns)
        return;
    m_columns = m_laidOutColumns;
    qDebug() << "emit columnsChanged();";
    emit columnsChanged();
}

void HighlightsModel::emitDataFetched(const QList<Highlight>& list, int sourceId, int questionId) {
    emit dataFetched(list, sourceId, questionId);
}

void HighlightsModel::emitModelReady() {
    emit modelReady(sourceId(), questionId(), sourceOffset(), sourceLength());
}

void HighlightsModel::emitAdded(const Highlight& highlight, const QPair<int, int>& affectedRange) {
    emit highlightAdded(highlight, affectedRange);
}

void HighlightsModel::emitRemoved(const Highlight& highlight, const QPair<int, int>& affectedRange) {
    emit highlightRemoved(highlight, affectedRange);
}
