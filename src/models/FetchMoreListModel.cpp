#include "models/FetchMoreListModel.h"

namespace {

constexpr int firstBatchSize = 20;
constexpr int batchSize = 100;

}  // namespace

FetchMoreListModel::FetchMoreListModel(QObject* parent) : QAbstractListModel(parent) {}

void FetchMoreListModel::setSourceModel(QAbstractItemModel* model) {
    if (m_source == model)
        return;
    beginResetModel();
    if (m_source)
        m_source->disconnect(this);
    m_source = model;
    m_shownCount = firstBatch();
    if (model) {
        connect(model, &QAbstractItemModel::modelReset, this, &FetchMoreListModel::resync);
        connect(model, &QObject::destroyed, this, [this] {
            m_source = nullptr;
            resync();
        });
    }
    endResetModel();
    emit sourceModelChanged();
}

int FetchMoreListModel::firstBatch() const {
    return m_source ? qBound(0, m_source->rowCount(), firstBatchSize) : 0;
}

int FetchMoreListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_shownCount;
}

QVariant FetchMoreListModel::data(const QModelIndex& index, int role) const {
    return m_source && index.isValid() ? m_source->data(m_source->index(index.row(), 0), role) : QVariant();
}

QHash<int, QByteArray> FetchMoreListModel::roleNames() const {
    return m_source ? m_source->roleNames() : QAbstractListModel::roleNames();
}

bool FetchMoreListModel::canFetchMore() const {
    return !m_announcing && m_source && m_shownCount < m_source->rowCount();
}

void FetchMoreListModel::fetchMore() {
    if (!canFetchMore())
        return;
    const int added = qMin(m_source->rowCount() - m_shownCount, batchSize);
    showRows(m_shownCount + added);
}

// A listener may ask for more while it is told of a change; that change has to end first.
void FetchMoreListModel::showRows(int count) {
    m_announcing = true;
    beginInsertRows({}, m_shownCount, count - 1);
    m_shownCount = count;
    endInsertRows();
    m_announcing = false;
}

void FetchMoreListModel::resync() {
    const int target = firstBatch();
    const int old = m_shownCount;
    if (old == 0) {
        beginResetModel();
        m_shownCount = target;
        endResetModel();
        return;
    }
    if (target > old) {
        showRows(target);
    } else if (target < old) {
        beginRemoveRows({}, target, old - 1);
        m_shownCount = target;
        endRemoveRows();
    }
    const int unchanged = qMin(old, target);
    if (unchanged > 0)
        emit dataChanged(index(0), index(unchanged - 1));
}
