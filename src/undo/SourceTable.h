#pragma once

#include <QObject>
#include <memory>

class FileManipulationCommand;
class KRNFile;

/// What the undo manager asks of a table from outside; the model that a person sees implements it.
class SourceTable {
public:
    virtual ~SourceTable() = default;

    /// Number of rows; each becomes a source.
    virtual int sourcesCount() const = 0;
    /// The command that makes the sources; an invalid one when the table can't be imported as it stands.
    virtual std::unique_ptr<FileManipulationCommand> importCommand(KRNFile* file) = 0;
};

Q_DECLARE_INTERFACE(SourceTable, "kernova.SourceTable")
