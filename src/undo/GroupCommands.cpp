#include "undo/GroupCommands.h"

#include "models/KernoGroupModel.h"
#include "project/KRNFile.h"
#include "undo/KernoCommands.h"

DeleteGroupCommand::DeleteGroupCommand(int groupId, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(groupId))
        return;
    for (const KernoGroup& link : file->kernoGroupModel()->linksOfGroup(groupId))
        new DeleteKernoGroupCommand(link, file, this);
}
