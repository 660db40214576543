#include "undo/FileManipulationCommand.h"

#include "project/KRNFile.h"

FileManipulationCommand::FileManipulationCommand(KRNFile* file, QUndoCommand* parent)
    : QUndoCommand(parent), m_file(file), m_hasParent(parent != nullptr) {}

bool FileManipulationCommand::isValid() const {
    if (!m_valid)
        return false;
    for (int i = childCount() - 1; i >= 0; --i) {
        const auto* part = dynamic_cast<const FileManipulationCommand*>(child(i));
        if (part && !part->isValid())
            return false;
    }
    return true;
}

BatchOperationManager* FileManipulationCommand::batches() const {
    return m_file->batchOperationManager();
}

QString FileManipulationCommand::currentAuthor() const {
    return m_file->getCurrentAuthor();
}
