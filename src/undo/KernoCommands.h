#pragma once

#include "records/Kerno.h"
#include "records/KernoGroup.h"
#include "records/KernoShortcutKey.h"
#include "undo/RecordCommands.h"

/// The colour for the next new kerno: the palette goes round with the number of kernos.
QColor nextKernoColor(const KRNFile& file);

/// Adds a kerno, as a new record of now by the current author; without an id or a colour it gets one.
class AddKernoCommand : public RecordCommand<Kerno> {
public:
    AddKernoCommand(const Kerno& kerno, KRNFile* file, QUndoCommand* parent = nullptr);
    /// A parent below 1 stands for none.
    AddKernoCommand(const QString& title, int parentKernoId, int x, int y, KRNFile* file,
                    QUndoCommand* parent = nullptr);
};

class UpdateKernoCommand : public IModelUpdateFileManipulationCommand<Kerno> {
public:
    UpdateKernoCommand(const Kerno& kerno, KRNFile* file, QUndoCommand* parent = nullptr);
};

/// Deletes a kerno with its codings, its places in groups and its keys, and with all kernos below it.
class DeleteKernoCommand : public RecordCommand<Kerno> {
public:
    /// `KeepBelow` is for a command that gives the kernos below it to another parent.
    enum class Cascade { All, KeepBelow };

    DeleteKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent = nullptr,
                       Cascade cascade = Cascade::All);

protected:
    void run(bool forward) override;

private:
    /// `deleted` has the kernos that the whole change deletes already: the parents may run in a circle.
    DeleteKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent, QSet<int>& deleted);
    void addBelow(QSet<int>& deleted);
    void addDependants();
};

using AddKernoGroupCommand = AddRecordCommand<KernoGroup>;
using DeleteKernoGroupCommand = DeleteRecordCommand<KernoGroup>;

class AddKernoShortcutKeyCommand : public AddRecordCommand<KernoShortcutKey> {
public:
    AddKernoShortcutKeyCommand(const QString& key, int kernoId, KRNFile* file, QUndoCommand* parent = nullptr)
        : AddRecordCommand(KernoShortcutKey(key, kernoId, QString()), file, parent) {}
};
using UpdateKernoShortcutKeyCommand = IModelUpdateFileManipulationCommand<KernoShortcutKey>;
using DeleteKernoShortcutKeyCommand = DeleteRecordCommand<KernoShortcutKey>;
