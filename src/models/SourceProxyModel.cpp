#include "models/SourceProxyModel.h"

#include "models/ProjectEvents.h"
#include "models/SourceModel.h"

SourceProxyModel::SourceProxyModel(QObject* parent) : QSortFilterProxyModel(parent) {
    connect(this, &QAbstractItemModel::rowsInserted, this, &SourceProxyModel::countChanged);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &SourceProxyModel::countChanged);
    connect(this, &QAbstractItemModel::modelReset, this, &SourceProxyModel::countChanged);
    setFilterRole(static_cast<int>(SourceField::title));
    setSortRole(sortRoleOf(m_sortMode));
    SourceModel* sources = ProjectEvents::current() ? ProjectEvents::current()->sourceModel() : nullptr;
    if (sources) {
        connect(sources, &SourceModel::globalPercentageCodedChanged, this,
                &SourceProxyModel::globalPercentageCodedChanged);
        setSourceModel(sources);
    }
    sort(0, Qt::AscendingOrder);
}

int SourceProxyModel::sortRoleOf(int mode) {
    switch (mode) {
    case 2:
    case 3:
        return static_cast<int>(SourceField::title);
    case 4:
    case 5:
        return static_cast<int>(SourceField::author);
    case 6:
    case 7:
        return SourceModel::SourcePercentageCodedRole;
    default:
        return static_cast<int>(SourceField::sourceId);
    }
}

void SourceProxyModel::setSortMode(int mode) {
    if (m_sortMode == mode)
        return;
    m_sortMode = mode;
    setSortRole(sortRoleOf(mode));
    sort(0, mode % 2 != 0 ? Qt::DescendingOrder : Qt::AscendingOrder);
    emit sortModeChanged();
}

int SourceProxyModel::globalPercentageCoded() const {
    const auto* sources = qobject_cast<const SourceModel*>(sourceModel());
    return sources ? sources->globalPercentageCoded() : 0;
}

QVariantList SourceProxyModel::getSortModes() const {
    return {tr("Default - Ascending"),          tr("Default - Descending"),         tr("Title - Ascending"),
            tr("Title - Descending"),           tr("Author - Ascending"),           tr("Author - Descending"),
            tr("Percentage Coded - Ascending"), tr("Percentage Coded - Descending")};
}

QVariant SourceProxyModel::get(int row, const QByteArray& roleName) const {
    if (m_rolesByName.isEmpty()) {
        const QHash<int, QByteArray> names = roleNames();
        for (auto name = names.cbegin(); name != names.cend(); ++name)
            m_rolesByName.insert(name.value(), name.key());
    }
    return data(index(row, 0), m_rolesByName.value(roleName, -1));
}
