#include "undo/UndoManager.h"

#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "project/KRNFile.h"
#include "undo/MetadataCommands.h"

void UndoManager::addMetadataKey(const SourceMetadataKey& key) {
    performAndFinish([&] { return new AddMetadataKeyCommand(key, m_file); });
}

void UndoManager::updateMetadataKey(const SourceMetadataKey& key) {
    performAndFinish([&] { return new UpdateMetadataKeyCommand(key, m_file); });
}

void UndoManager::deleteMetadataKey(int keyId) {
    performAndFinish([&] { return new DeleteMetadataKeyCommand(keyId, m_file); });
}

void UndoManager::addMetadataValue(const SourceMetadataValue& value) {
    performAndFinish([&] { return new AddMetadataValueCommand(value, m_file); });
}

void UndoManager::updateMetadataValue(const SourceMetadataValue& value) {
    performAndFinish([&] { return new UpdateMetadataValueCommand(value, m_file); });
}

void UndoManager::deleteMetadataValue(int valueId) {
    performAndFinish([&] { return new DeleteMetadataValueCommand(valueId, m_file); });
}

void UndoManager::addMetadataKeyAndValue(const QString& key, const QVariant& value, int sourceId) {
    addMetadataKeyAndValues(key, {value}, sourceId);
}

void UndoManager::addMetadataKeyAndValues(const QString& key, const QVariantList& values, int sourceId) {
    performAndFinish([&] { return new AdvancedAddMetadataCommand(key, values, sourceId, m_file); });
}

void UndoManager::addMetadata(int keyId, int valueId, int sourceId) {
    performAndFinish([&] {
        return newGiveMetadataCommand(m_file->metadataKey(keyId),
                                      m_file->metadataValueModel()->record(valueId), sourceId, m_file);
    });
}

void UndoManager::deleteMetadata(int metadataId) {
    performAndFinish([&] { return new DeleteMetadataCommand(metadataId, m_file); });
}

void UndoManager::deleteMetadata(int keyId, int sourceId) {
    performAndFinish([&]() -> FileManipulationCommand* {
        const QList<SourceMetadata> links = m_file->metadataModel()->links(keyId, sourceId);
        if (links.isEmpty())
            return nullptr;
        auto* all = new FileManipulationCommand(m_file);
        for (const SourceMetadata& link : links)
            new DeleteMetadataCommand(link, m_file, all);
        return all;
    });
}
