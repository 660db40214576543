#include "models/KernoOverlapModel.h"

#include "models/DelayedSignalTrigger.h"
#include "models/KernoLevels.h"
#include "models/ProjectEvents.h"

KernoOverlapModel::KernoOverlapModel(QObject* parent)
    : BaseProxyModelWithManualSortOrder(parent), m_trigger(new DelayedSignalTrigger(0, this)) {
    setDynamicSortFilter(false);
    connect(this, &KernoOverlapModel::newAsyncResultComputed, this, [this] { sort(0, Qt::DescendingOrder); });
    connect(m_trigger, &QTimer::timeout, this, &KernoOverlapModel::recompute);
    if (ProjectEvents* project = ProjectEvents::current())
        setRecords(project->kernoModel());
    // The counts are a blocking read, so a burst of changes in one pass of the event loop is counted once.
    if (records())
        connect(records(), &IModelListBase::modelUpdated, m_trigger, &DelayedSignalTrigger::restart);
}

void KernoOverlapModel::setKernoId(int kernoId) {
    if (m_kernoId == kernoId)
        return;
    m_kernoId = kernoId;
    emit kernoIdChanged();
    recompute();
}

QVariant KernoOverlapModel::data(const QModelIndex& index, int role) const {
    if (role != OverlapsRole && role != OverlapFactorRole)
        return BaseProxyModelWithManualSortOrder::data(index, role);
    const QModelIndex source = mapToSource(index);
    if (!source.isValid())
        return {};
    const int overlaps = m_overlaps.value(idAt(source.row()), 0);
    if (role == OverlapsRole)
        return overlaps;
    return m_maxOverlap < 1 ? 0.0 : static_cast<double>(overlaps) / m_maxOverlap;
}

QHash<int, QByteArray> KernoOverlapModel::roleNames() const {
    QHash<int, QByteArray> names = BaseProxyModelWithManualSortOrder::roleNames();
    names.insert(OverlapsRole, "overlaps");
    names.insert(OverlapFactorRole, "overlapFactor");
    return names;
}

int KernoOverlapModel::getAngleForOverlap(int overlap) const {
    return angleForOverlap(m_overlaps, overlap, m_kernoId);
}

bool KernoOverlapModel::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    return m_overlaps.value(idAt(left.row()), 0) < m_overlaps.value(idAt(right.row()), 0);
}

int KernoOverlapModel::idAt(int sourceRow) const {
    return records() ? records()->kernoIdAt(sourceRow) : Kerno().id();
}

void KernoOverlapModel::recompute() {
    if (m_kernoId < 1 || !records() || !ProjectEvents::current())
        return;
    if (m_computing) {
        // The main kerno or the list changed while a read waited.
        m_trigger->restart();
        return;
    }
    m_computing = true;
    const int mainId = m_kernoId;
    QList<int> others;
    for (const Kerno& kerno : records()->snapshot()) {
        if (kerno.kernoId() != mainId)
            others.append(kerno.kernoId());
    }
    const QList<int> counts = ProjectEvents::current()->overlapsOf(mainId, others);
    QHash<int, int> overlaps;
    int largest = 0;
    for (int i = 0; i < others.size(); ++i) {
        overlaps.insert(others.at(i), counts.value(i));
        largest = qMax(largest, counts.value(i));
    }
    m_computing = false;
    // What is shown stays when it can't be read anew.
    const bool isShown = !m_overlaps.isEmpty() && !m_overlaps.contains(mainId);
    if (mainId != m_kernoId || (counts.size() < others.size() && isShown))
        return;
    if (overlaps != m_overlaps) {
        m_overlaps = overlaps;
        m_maxOverlap = largest;
        if (rowCount() > 0)
            emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {OverlapsRole, OverlapFactorRole});
    }
    emit newAsyncResultComputed();
}
