#pragma once

#include "records/Group.h"
#include "undo/RecordCommands.h"

using AddGroupCommand = AddRecordCommand<Group>;
using UpdateGroupCommand = IModelUpdateFileManipulationCommand<Group>;

/// Deletes a group; its kernos only leave it.
class DeleteGroupCommand : public RecordCommand<Group> {
public:
    DeleteGroupCommand(int groupId, KRNFile* file, QUndoCommand* parent = nullptr);
};
