#include "models/KernoShortcutKeyModel.h"
#include "models/KernoShortcutKeyProxyModel.h"
#include "models/ProjectEvents.h"

#include <QMutexLocker>

namespace {

const QStringList& offeredKeys() {
    static const QStringList keys =
        QStringLiteral("0,1,2,3,4,5,6,7,8,9,A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q,R,S,T,U,V,W,X,Y,Z")
            .split(QLatin1Char(','));
    return keys;
}

}  // namespace

KernoShortcutKeyModel::KernoShortcutKeyModel(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent), m_byKerno([](const KernoShortcutKey& key) { return key.kernoId(); }) {
    addIndex(&m_byKerno);
}

QList<KernoShortcutKey> KernoShortcutKeyModel::keysOfKerno(int kernoId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byKerno.records(kernoId);
}

KernoShortcutKeyProxyModel::KernoShortcutKeyProxyModel(QObject* parent)
    : QAbstractListModel(parent),
      m_keys(ProjectEvents::current() ? ProjectEvents::current()->shortcutKeyModel() : nullptr) {
    if (m_keys)
        connect(m_keys, &IModelListBase::modelUpdated, this, &KernoShortcutKeyProxyModel::announceAll);
}

int KernoShortcutKeyProxyModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : offeredKeys().size();
}

QVariant KernoShortcutKeyProxyModel::data(const QModelIndex& index, int role) const {
    if (index.row() < 0 || index.row() >= offeredKeys().size())
        return {};
    const QString key = offeredKeys().at(index.row());
    switch (role) {
    case ShortcutKeyRole:
        return key;
    case KernoIdRole:
        return findKernoIdForShortcut(key);
    default:
        return {};
    }
}

QHash<int, QByteArray> KernoShortcutKeyProxyModel::roleNames() const {
    return {{ShortcutKeyRole, "shortcutKey"}, {KernoIdRole, "kernoId"}};
}

int KernoShortcutKeyProxyModel::findKernoIdForShortcut(const QString& shortcut) const {
    const KernoShortcutKey key = m_keys ? m_keys->record(shortcut) : KernoShortcutKey();
    return key.isValid() ? key.kernoId() : 0;
}

void KernoShortcutKeyProxyModel::announceAll() {
    emit dataChanged(index(0), index(offeredKeys().size() - 1));
}
