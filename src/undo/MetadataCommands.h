#pragma once

#include "records/SourceMetadata.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"
#include "undo/RecordCommands.h"

using AddMetadataKeyCommand = AddRecordCommand<SourceMetadataKey>;
using UpdateMetadataKeyCommand = IModelUpdateFileManipulationCommand<SourceMetadataKey>;

/// Deletes a property with its values.
class DeleteMetadataKeyCommand : public RecordCommand<SourceMetadataKey> {
public:
    DeleteMetadataKeyCommand(int keyId, KRNFile* file, QUndoCommand* parent = nullptr);
};

using AddMetadataValueCommand = AddRecordCommand<SourceMetadataValue>;
using UpdateMetadataValueCommand = IModelUpdateFileManipulationCommand<SourceMetadataValue>;

/// Deletes a value and takes it from all sources that have it.
class DeleteMetadataValueCommand : public RecordCommand<SourceMetadataValue> {
public:
    DeleteMetadataValueCommand(int valueId, KRNFile* file, QUndoCommand* parent = nullptr);
};

/// Gives a value of a property to a source. Key and value need not be stored yet. Invalid when the source has
/// it.
class AddMetadataCommand : public RecordCommand<SourceMetadata> {
public:
    AddMetadataCommand(const SourceMetadataKey& key, const SourceMetadataValue& value, int sourceId,
                       KRNFile* file, QUndoCommand* parent = nullptr);
};

using UpdateMetadataCommand = IModelUpdateFileManipulationCommand<SourceMetadata>;
using DeleteMetadataCommand = DeleteRecordCommand<SourceMetadata>;

/// The command that gives a value to a source: it replaces the one that the source has of a property that
/// takes a single one, otherwise it adds it. Owned by `parent`, or by the caller without one.
FileManipulationCommand* newGiveMetadataCommand(const SourceMetadataKey& key,
                                                const SourceMetadataValue& value, int sourceId, KRNFile* file,
                                                QUndoCommand* parent = nullptr);

/// Adds a property and values of it by their texts, as far as they are missing, and with a `sourceId` above 0
/// gives the values to the source: all in one step.
class AdvancedAddMetadataCommand : public FileManipulationCommand {
public:
    AdvancedAddMetadataCommand(const QString& inlineKey, const QVariantList& inlineValues, int sourceId,
                               KRNFile* file, QUndoCommand* parent = nullptr);

    void redo() override { run(true); }
    void undo() override { run(false); }

private:
    SourceMetadataKey keyFor(const QString& name);
    SourceMetadataValue valueFor(int keyId, const QVariant& text);
    void run(bool forward);
};
