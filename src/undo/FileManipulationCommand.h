#pragma once

#include <QDateTime>
#include <QUndoCommand>

class BatchOperationManager;
class KRNFile;

/// Base of every command. It holds what it needs to do its change and to take it back, and talks only to the
/// project. A constructor prepares and may read, but changes nothing: the work is done by `redo`, which a
/// push calls at once.
///
/// Children are commands of their own that are created with this one as their parent, which then owns them.
class FileManipulationCommand : public QUndoCommand {
public:
    explicit FileManipulationCommand(KRNFile* file, QUndoCommand* parent = nullptr);

    /// False when this command or one below it can't work or would change nothing. It is then thrown away
    /// whole.
    bool isValid() const;

protected:
    void invalidate() { m_valid = false; }
    KRNFile* file() const { return m_file; }
    BatchOperationManager* batches() const;
    bool hasParent() const { return m_hasParent; }

    /// The author of everything that commands create: the project's current author.
    QString currentAuthor() const;
    QDateTime now() const { return QDateTime::currentDateTime(); }

    void redoChildren() { QUndoCommand::redo(); }
    void undoChildren() { QUndoCommand::undo(); }

private:
    KRNFile* m_file;
    bool m_hasParent;
    bool m_valid = true;
};
