#include "models/ChatModel.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/ProjectEvents.h"

#include <QMutexLocker>

GroupModel::GroupModel(DataHelper* helper, QObject* parent) : IModelList(helper, parent) {}

QVariant GroupModel::data(const QModelIndex& index, int role) const {
    if (role != AssociatedKernosCountRole)
        return IModelList::data(index, role);
    const KernoGroupModel* links = project() ? project()->kernoGroupModel() : nullptr;
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    if (row < 0 || row >= items().size())
        return {};
    return links ? links->countOfGroup(items().at(row)->groupId()) : 0;
}

QHash<int, QByteArray> GroupModel::roleNames() const {
    QHash<int, QByteArray> names = IModelList::roleNames();
    names.insert(AssociatedKernosCountRole, "associatedKernosCount");
    return names;
}

void GroupModel::setVisible(int groupId, bool visible) {
    const QMutexLocker lock(&m_mutex);
    Row* row = rowOf(groupId);
    if (!row || row->visible() == visible)
        return;
    row->setVisible(visible);
    emitRowsChanged(row->row, row->row, {static_cast<int>(GroupField::visible)});
}

void GroupModel::onShouldUpdateAssociatedKernosCount(int groupId) {
    const QMutexLocker lock(&m_mutex);
    const int row = indexOfKey(groupId);
    if (row >= 0)
        emitRowsChanged(row, row, {AssociatedKernosCountRole});
}

int GroupModel::insertionRow(const Group& group) const {
    int row = 0;
    while (row < items().size() && items().at(row)->groupId() <= group.groupId())
        ++row;
    return row;
}

KernoGroupModel::KernoGroupModel(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent), m_byKerno([](const KernoGroup& link) { return link.kernoId(); }),
      m_byGroup([](const KernoGroup& link) { return link.groupId(); }) {
    addIndex(&m_byKerno);
    addIndex(&m_byGroup);
}

QList<KernoGroup> KernoGroupModel::linksOfKerno(int kernoId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byKerno.records(kernoId);
}

QList<KernoGroup> KernoGroupModel::linksOfGroup(int groupId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byGroup.records(groupId);
}

int KernoGroupModel::countOfGroup(int groupId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byGroup.rows(groupId).size();
}

KernoGroup KernoGroupModel::link(int kernoId, int groupId) const {
    const QMutexLocker lock(&m_mutex);
    for (const Row* row : m_byKerno.rows(kernoId)) {
        if (row->groupId() == groupId)
            return *row;
    }
    return KernoGroup();
}

ChatModel::ChatModel(DataHelper* helper, QObject* parent) : IModelList(helper, parent) {}
