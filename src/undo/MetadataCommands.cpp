#include "undo/MetadataCommands.h"

#include "models/BatchOperationManager.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "project/KRNFile.h"
#include "link/IdManager.h"

#include <QDebug>

DeleteMetadataKeyCommand::DeleteMetadataKeyCommand(int keyId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(keyId))
        return;
    for (const SourceMetadataValue& value : file->metadataValueModel()->valuesOfKey(keyId))
        new DeleteMetadataValueCommand(value.id(), file, this);
}

DeleteMetadataValueCommand::DeleteMetadataValueCommand(int valueId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(valueId))
        return;
    for (const SourceMetadata& link : file->metadataModel()->linksOfValue(valueId))
        new DeleteMetadataCommand(link, file, this);
}

AddMetadataCommand::AddMetadataCommand(const SourceMetadataKey& key, const SourceMetadataValue& value,
                                       int sourceId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Save, file, parent) {
    if (!isUsable(key) || !isUsable(value) || sourceId < 1 ||
        file->metadataModel()->hasLink(key.id(), value.id(), sourceId)) {
        invalidate();
        return;
    }
    SourceMetadata link(-1, sourceId, key.id(), value.id(), QString(), now());
    factsOf<SourceMetadata>().create(link, currentAuthor());
    take(link);
}

FileManipulationCommand* newGiveMetadataCommand(const SourceMetadataKey& key,
                                                const SourceMetadataValue& value, int sourceId, KRNFile* file,
                                                QUndoCommand* parent) {
    if (!key.multipleChoice()) {
        SourceMetadata link = file->metadataModel()->link(key.id(), sourceId);
        if (isUsable(link) && isUsable(value)) {
            link.setValueId(value.id());
            return new UpdateMetadataCommand(link, file, parent);
        }
    }
    return new AddMetadataCommand(key, value, sourceId, file, parent);
}

AdvancedAddMetadataCommand::AdvancedAddMetadataCommand(const QString& inlineKey,
                                                       const QVariantList& inlineValues, int sourceId,
                                                       KRNFile* file, QUndoCommand* parent)
    : FileManipulationCommand(file, parent) {
    qDebug() << "init";
    const SourceMetadataKey key = keyFor(inlineKey);
    for (const QVariant& text : inlineValues) {
        const SourceMetadataValue value = valueFor(key.id(), text);
        if (sourceId > 0 && !file->metadataModel()->hasLink(key.id(), value.id(), sourceId))
            newGiveMetadataCommand(key, value, sourceId, file, this);
    }
    if (childCount() == 0)
        invalidate();
}

SourceMetadataKey AdvancedAddMetadataCommand::keyFor(const QString& name) {
    for (const SourceMetadataKey& key : file()->metadataKeyModel()->snapshot()) {
        if (key.key() == name)
            return key;
    }
    const SourceMetadataKey key(IdManager::instance()->nextSourceMetadataKeyId(), false, false, name);
    new AddMetadataKeyCommand(key, file(), this);
    return key;
}

SourceMetadataValue AdvancedAddMetadataCommand::valueFor(int keyId, const QVariant& text) {
    SourceMetadataValue value = file()->metadataValueModel()->findValue(keyId, text);
    if (isUsable(value))
        return value;
    value = SourceMetadataValue(IdManager::instance()->nextSourceMetadataValueId(), keyId, text);
    new AddMetadataValueCommand(value, file(), this);
    return value;
}

void AdvancedAddMetadataCommand::run(bool forward) {
    const bool isBatch = childCount() > 1;
    if (isBatch)
        batches()->startMetadataBatch();
    forward ? redoChildren() : undoChildren();
    if (isBatch)
        batches()->finishMetadataBatch();
}
