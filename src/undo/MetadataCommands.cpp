#include "undo/MetadataCommands.h"

#include "models/BatchOperationManager.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "project/KRNFile.h"

#include <QDebug>
#include <algorithm>

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
    if (!isUsable(key)) {
        invalidate();
        return;
    }
    QList<SourceMetadataValue> values;
    for (const QVariant& text : inlineValues) {
        const auto isSame = [&text](const SourceMetadataValue& value) { return value.value() == text; };
        if (std::none_of(values.cbegin(), values.cend(), isSame))
            values.append(valueFor(key.id(), text));
    }
    // A property of one value keeps the last.
    if (!key.multipleChoice())
        values = values.mid(values.size() - 1);
    for (const SourceMetadataValue& value : qAsConst(values)) {
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
    return (new AddMetadataKeyCommand(SourceMetadataKey(-1, false, false, name), file(), this))->record();
}

SourceMetadataValue AdvancedAddMetadataCommand::valueFor(int keyId, const QVariant& text) {
    const SourceMetadataValue value = file()->metadataValueModel()->findValue(keyId, text);
    if (isUsable(value))
        return value;
    return (new AddMetadataValueCommand(SourceMetadataValue(-1, keyId, text), file(), this))->record();
}

void AdvancedAddMetadataCommand::run(bool forward) {
    const bool isBatch = childCount() > 1;
    if (isBatch)
        batches()->startMetadataBatch();
    forward ? redoChildren() : undoChildren();
    if (isBatch)
        batches()->finishMetadataBatch();
}
