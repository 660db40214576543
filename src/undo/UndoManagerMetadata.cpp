#include "undo/UndoManager.h"

#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "project/KRNFile.h"
#include "undo/MetadataCommands.h"

void UndoManager::addMetadataKey(const SourceMetadataKey& key) {
    performAndFinish([&] { return std::make_unique<AddMetadataKeyCommand>(key, m_file); });
}

void UndoManager::updateMetadataKey(const SourceMetadataKey& key) {
    performAndFinish([&] { return std::make_unique<UpdateMetadataKeyCommand>(key, m_file); });
}

void UndoManager::deleteMetadataKey(int keyId) {
    performAndFinish([&] { return std::make_unique<DeleteMetadataKeyCommand>(keyId, m_file); });
}

void UndoManager::addMetadataValue(const SourceMetadataValue& value) {
    performAndFinish([&] { return std::make_unique<AddMetadataValueCommand>(value, m_file); });
}

void UndoManager::updateMetadataValue(const SourceMetadataValue& value) {
    performAndFinish([&] { return std::make_unique<UpdateMetadataValueCommand>(value, m_file); });
}

void UndoManager::deleteMetadataValue(int valueId) {
    performAndFinish([&] { return std::make_unique<DeleteMetadataValueCommand>(valueId, m_file); });
}

void UndoManager::addMetadataKeyAndValue(const QString& key, const QVariant& value, int sourceId) {
    addMetadataKeyAndValues(key, {value}, sourceId);
}

void UndoManager::addMetadataKeyAndValues(const QString& key, const QVariantList& values, int sourceId) {
    performAndFinish(
        [&] { return std::make_unique<AdvancedAddMetadataCommand>(key, values, sourceId, m_file); });
}

void UndoManager::addMetadata(int keyId, int valueId, int sourceId) {
    performAndFinish([&] {
        return Command(newGiveMetadataCommand(
            m_file->metadataKey(keyId), m_file->metadataValueModel()->record(valueId), sourceId, m_file));
    });
}

void UndoManager::deleteMetadata(int metadataId) {
    performAndFinish([&] { return std::make_unique<DeleteMetadataCommand>(metadataId, m_file); });
}

void UndoManager::deleteMetadata(int keyId, int sourceId) {
    performAndFinish([&]() -> Command {
        const QList<SourceMetadata> links = m_file->metadataModel()->links(keyId, sourceId);
        if (links.isEmpty())
            return nullptr;
        auto all = std::make_unique<FileManipulationCommand>(m_file);
        for (const SourceMetadata& link : links)
            new DeleteMetadataCommand(link, m_file, all.get());
        return all;
    });
}
