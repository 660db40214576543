#pragma once

#include "records/Memo.h"
#include "undo/BatchCommand.h"
#include "undo/RecordCommands.h"

class AddMemoCommand : public RecordCommand<Memo> {
public:
    AddMemoCommand(const Memo& memo, KRNFile* file, QUndoCommand* parent = nullptr);
};

using UpdateMemoCommand = IModelUpdateFileManipulationCommand<Memo>;
using DeleteMemoCommand = DeleteRecordCommand<Memo>;

class BatchDeleteMemosCommand : public BatchCommand<Memo> {
public:
    BatchDeleteMemosCommand(const QList<Memo>& memos, KRNFile* file, QUndoCommand* parent = nullptr)
        : BatchCommand(Does::Remove, memos, file, parent) {}
};
