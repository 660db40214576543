#include "models/BatchOperationManager.h"
#include "models/ProjectEvents.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"

#include <QMutexLocker>
#include <algorithm>

namespace {

// Changes that are held back during a bulk change are fetched at its end.
void refreshAfterBatch(IModelListBase* model, const ProjectEvents* project) {
    if (const BatchOperationManager* batches = project ? project->batchOperationManager() : nullptr)
        QObject::connect(batches, &BatchOperationManager::metadataBatchUpdateFinished, model,
                         &IModelListBase::refreshAsync);
}

}  // namespace

SourceMetadataKeyModel::SourceMetadataKeyModel(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent) {
    refreshAfterBatch(this, project());
}

SourceMetadataValueModel::SourceMetadataValueModel(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent), m_byKeyId([](const SourceMetadataValue& value) { return value.keyId(); }) {
    addIndex(&m_byKeyId);
    refreshAfterBatch(this, project());
}

QList<SourceMetadataValue> SourceMetadataValueModel::valuesOfKey(int keyId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byKeyId.records(keyId);
}

QVariantList SourceMetadataValueModel::valueMapsOfKey(int keyId) const {
    QVariantList list;
    const QList<SourceMetadataValue> values = valuesOfKey(keyId);
    for (const SourceMetadataValue& value : values)
        list.append(value.toVariantMap());
    return list;
}

SourceMetadataValue SourceMetadataValueModel::value(int keyId, int valueId) const {
    const QMutexLocker lock(&m_mutex);
    const Row* row = rowOf(valueId);
    if (!row || row->keyId() != keyId)
        return SourceMetadataValue();
    return *row;
}

bool SourceMetadataValueModel::hasValue(int keyId, const QVariant& value) const {
    return findValue(keyId, value).valueId() > 0;
}

SourceMetadataValue SourceMetadataValueModel::findValue(int keyId, const QVariant& value) const {
    const QMutexLocker lock(&m_mutex);
    const auto& rows = m_byKeyId.rows(keyId);
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&value](const Row* row) { return row->value() == value; });
    if (found == rows.end())
        return SourceMetadataValue();
    return **found;
}

void SourceMetadataValueModel::onModelUpdated(int, const SourceMetadataValue& value,
                                              const QVector<int>& changedRoles) {
    if (changedRoles.contains(static_cast<int>(SourceMetadataValueField::value)))
        emit valueUpdated(value);
}

SourceMetadataModel::SourceMetadataModel(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent), m_byValue([](const SourceMetadata& link) { return link.valueId(); }),
      m_bySource([](const SourceMetadata& link) { return link.sourceId(); }) {
    addIndex(&m_byValue);
    addIndex(&m_bySource);
    refreshAfterBatch(this, project());
    if (SourceMetadataValueModel* values = project() ? project()->metadataValueModel() : nullptr)
        connect(values, &SourceMetadataValueModel::valueUpdated, this, &SourceMetadataModel::onValueUpdated);
}

QVariant SourceMetadataModel::data(const QModelIndex& index, int role) const {
    if (role != ValueRole)
        return IModelList::data(index, role);
    const SourceMetadataValueModel* values = project() ? project()->metadataValueModel() : nullptr;
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    if (!values || row < 0 || row >= items().size())
        return {};
    return values->record(items().at(row)->valueId()).value();
}

QHash<int, QByteArray> SourceMetadataModel::roleNames() const {
    QHash<int, QByteArray> names = IModelList::roleNames();
    names.insert(ValueRole, "value");
    return names;
}

SourceMetadata SourceMetadataModel::link(int keyId, int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    for (const Row* row : m_bySource.rows(sourceId)) {
        if (row->keyId() == keyId)
            return *row;
    }
    return SourceMetadata();
}

QList<SourceMetadata> SourceMetadataModel::links(int keyId, int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    QList<SourceMetadata> list;
    for (const Row* row : m_bySource.rows(sourceId)) {
        if (row->keyId() == keyId)
            list.append(*row);
    }
    return list;
}

QList<SourceMetadata> SourceMetadataModel::linksOfValue(int valueId) const {
    const QMutexLocker lock(&m_mutex);
    return m_byValue.records(valueId);
}

QList<SourceMetadata> SourceMetadataModel::linksOfSource(int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    return m_bySource.records(sourceId);
}

bool SourceMetadataModel::hasLink(int keyId, int valueId, int sourceId) const {
    const QMutexLocker lock(&m_mutex);
    const auto& rows = m_bySource.rows(sourceId);
    return std::any_of(rows.begin(), rows.end(), [keyId, valueId](const Row* row) {
        return row->keyId() == keyId && row->valueId() == valueId;
    });
}

QList<SourceMetadataValue> SourceMetadataModel::valuesOf(int sourceId, int keyId) const {
    QList<SourceMetadataValue> list;
    const SourceMetadataValueModel* values = project() ? project()->metadataValueModel() : nullptr;
    if (!values)
        return list;
    const QList<SourceMetadata> found = links(keyId, sourceId);
    for (const SourceMetadata& link : found) {
        const SourceMetadataValue value = values->record(link.valueId());
        if (value.isValid())
            list.append(value);
    }
    return list;
}

void SourceMetadataModel::onModelUpdated(int row, const SourceMetadata&, const QVector<int>& changedRoles) {
    if (changedRoles.contains(static_cast<int>(SourceMetadataField::valueId)))
        emitRowsChanged(row, row, {ValueRole});
}

void SourceMetadataModel::onValueUpdated(SourceMetadataValue model) {
    const QMutexLocker lock(&m_mutex);
    const auto& rows = m_byValue.rows(model.valueId());
    // The first row is left out, as it has always been; it is refreshed by the next fetch.
    const int row = rows.isEmpty() ? -1 : rows.last()->row;
    if (row > 0)
        emitRowsChanged(row, row, {ValueRole});
}
