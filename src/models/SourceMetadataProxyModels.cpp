#include "models/SourceMetadataProxyModels.h"

#include "models/ProjectEvents.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"

namespace {

constexpr int keyRole = static_cast<int>(SourceMetadataKeyField::key);
constexpr int keyIdRole = static_cast<int>(SourceMetadataKeyField::keyId);
constexpr int valueRole = static_cast<int>(SourceMetadataValueField::value);
constexpr int valueIdRole = static_cast<int>(SourceMetadataValueField::valueId);

int sourceValue(const QSortFilterProxyModel& proxy, int sourceRow, int role) {
    return proxy.sourceModel()->index(sourceRow, 0).data(role).toInt();
}

}  // namespace

SourceMetadataKeyProxyModel::SourceMetadataKeyProxyModel(QObject* parent) : BaseProxyModel(parent) {
    setSortRole(keyIdRole);
    if (ProjectEvents* project = ProjectEvents::current())
        setSourceModel(project->metadataKeyModel());
    sort(0, Qt::AscendingOrder);
}

void SourceMetadataKeyProxyModel::setSortType(int sortType) {
    if (m_sortType == sortType)
        return;
    m_sortType = sortType;
    emit sortTypeChanged();
    const bool byName = sortType == SortAlphaNumericAscending || sortType == SortAlphaNumericDescending;
    setSortRole(byName ? keyRole : keyIdRole);
    sort(0, sortType == SortAlphaNumericDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

int SourceMetadataKeyProxyModel::rowOfKey(const QString& key) const {
    int row = rowCount() - 1;
    while (row >= 0 && index(row, 0).data(keyRole).toString() != key)
        --row;
    return row;
}

bool SourceMetadataKeyProxyModel::hasKey(const QString& key) const {
    return rowOfKey(key) >= 0;
}

int SourceMetadataKeyProxyModel::findKeyId(const QString& key) const {
    const int row = rowOfKey(key);
    const int id = row < 0 ? -1 : index(row, 0).data(keyIdRole).toInt();
    return id < 1 ? -1 : id;
}

SourceMetadataKey SourceMetadataKeyProxyModel::findKeyWithId(int keyId) const {
    const auto* keys = qobject_cast<const SourceMetadataKeyModel*>(sourceModel());
    return keys ? keys->record(keyId) : SourceMetadataKey();
}

QVariantList SourceMetadataKeyProxyModel::getSortTypesDropDown() const {
    const auto entry = [](const QString& name, SortType value) {
        return QVariantMap{{QStringLiteral("name"), name},
                           {QStringLiteral("value"), static_cast<int>(value)}};
    };
    if (m_sortTypes.isEmpty()) {
        m_sortTypes = {entry(tr("Default", "sort type"), SortDefault),
                       entry(tr("Alpha-Numerical - Ascending ", "sort type"), SortAlphaNumericAscending),
                       entry(tr("Alpha-Numerical - Descending", "sort type"), SortAlphaNumericDescending)};
    }
    return m_sortTypes;
}

SourceMetadataValueProxyModel::SourceMetadataValueProxyModel(QObject* parent) : BaseProxyModel(parent) {
    setSortRole(valueIdRole);
    if (ProjectEvents* project = ProjectEvents::current())
        setSourceModel(project->metadataValueModel());
    sort(0, Qt::AscendingOrder);
}

void SourceMetadataValueProxyModel::setKeyId(int keyId) {
    if (m_keyId == keyId)
        return;
    m_keyId = keyId;
    invalidateFilter();
    emit keyIdChanged();
}

void SourceMetadataValueProxyModel::setSortAlphabetically(bool sortAlphabetically) {
    if (m_sortAlphabetically == sortAlphabetically)
        return;
    m_sortAlphabetically = sortAlphabetically;
    emit sortAlphabeticallyChanged();
    setSortRole(sortAlphabetically ? valueRole : valueIdRole);
}

bool SourceMetadataValueProxyModel::hasValue(const QVariant& value) const {
    for (int row = rowCount() - 1; row >= 0; --row) {
        if (index(row, 0).data(valueRole) == value)
            return true;
    }
    return false;
}

SourceMetadataValue SourceMetadataValueProxyModel::findValueWithId(int valueId) const {
    const auto* values = qobject_cast<const SourceMetadataValueModel*>(sourceModel());
    return values ? values->record(valueId) : SourceMetadataValue();
}

bool SourceMetadataValueProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex&) const {
    return m_keyId == 0 ||
           sourceValue(*this, sourceRow, static_cast<int>(SourceMetadataValueField::keyId)) == m_keyId;
}

SourceMetadataProxyModel::SourceMetadataProxyModel(QObject* parent) : BaseProxyModel(parent) {
    if (ProjectEvents* project = ProjectEvents::current())
        setSourceModel(project->metadataModel());
}

void SourceMetadataProxyModel::setSourceId(int sourceId) {
    if (m_sourceId == sourceId)
        return;
    m_sourceId = sourceId;
    invalidateFilter();
    emit sourceIdChanged();
}

void SourceMetadataProxyModel::setKeyId(int keyId) {
    if (m_keyId == keyId)
        return;
    m_keyId = keyId;
    invalidateFilter();
    emit keyIdChanged();
}

bool SourceMetadataProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex&) const {
    if (m_sourceId == 0 && m_keyId == 0)
        return true;
    return sourceValue(*this, sourceRow, static_cast<int>(SourceMetadataField::sourceId)) == m_sourceId &&
           sourceValue(*this, sourceRow, static_cast<int>(SourceMetadataField::keyId)) == m_keyId;
}
