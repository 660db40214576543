#include "undo/MemoCommands.h"

AddMemoCommand::AddMemoCommand(const Memo& memo, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Save, file, parent) {
    if (!memo.isValid()) {
        invalidate();
        return;
    }
    Memo added = ownCopy(memo);
    added.setMemoId(-1);
    factsOf<Memo>().create(added, currentAuthor());
    take(added);
}
