#include "undo/KernoCommands.h"

#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "project/KRNFile.h"
#include "undo/Dependants.h"
#include "undo/HighlightCommands.h"
#include "undo/KernoBatch.h"

QColor nextKernoColor(const KRNFile& file) {
    static const QList<QColor> palette{QStringLiteral("#E1E120"), QStringLiteral("#81E120"),
                                       QStringLiteral("#2081E1"), QStringLiteral("#8120E1"),
                                       QStringLiteral("#E120E1"), QStringLiteral("#E12081"),
                                       QStringLiteral("#E12020"), QStringLiteral("#E18120")};
    return palette.at(file.kernoModel()->rowCount() % palette.size());
}

AddKernoCommand::AddKernoCommand(const Kerno& kerno, KRNFile* file, QUndoCommand* parent)
    : RecordCommand(Does::Save, file, parent) {
    Kerno added(kerno);
    factsOf<Kerno>().create(added, currentAuthor());
    added.setTimestamp(now());
    if (!added.color().isValid())
        added.setColor(nextKernoColor(*file));
    take(added);
}

AddKernoCommand::AddKernoCommand(const QString& title, int parentKernoId, int x, int y, KRNFile* file,
                                 QUndoCommand* parent)
    : AddKernoCommand(Kerno(-1, parentKernoId < 1 ? -1 : parentKernoId, QColor(), title, QString(),
                            QDateTime(), QString(), x, y),
                      file, parent) {}

UpdateKernoCommand::UpdateKernoCommand(const Kerno& kerno, KRNFile* file, QUndoCommand* parent)
    : IModelUpdateFileManipulationCommand(kerno, file, parent) {
    if (kerno.id() == kerno.parentKernoId())
        invalidate();
}

DeleteKernoCommand::DeleteKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent, Cascade cascade)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(kernoId))
        return;
    QSet<int> deleted;
    if (cascade == Cascade::All)
        addBelow(deleted);
    addDependants();
}

DeleteKernoCommand::DeleteKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent, QSet<int>& deleted)
    : RecordCommand(Does::Remove, file, parent) {
    if (!takeStored(kernoId))
        return;
    addBelow(deleted);
    addDependants();
}

void DeleteKernoCommand::addBelow(QSet<int>& deleted) {
    deleted.insert(record().id());
    for (const Kerno& below : file()->kernoModel()->childrenOf(record().id())) {
        if (!deleted.contains(below.id()))
            new DeleteKernoCommand(below.id(), file(), this, deleted);
    }
}

void DeleteKernoCommand::addDependants() {
    const int id = record().id();
    const auto highlights = dependants::highlightsOfKerno(*file(), id);
    if (!highlights) {
        invalidate();
        return;
    }
    new BatchDeleteHighlightsCommand(*highlights, file(), this);
    for (const KernoGroup& link : file()->kernoGroupModel()->linksOfKerno(id))
        new DeleteKernoGroupCommand(link, file(), this);
    for (const KernoShortcutKey& key : file()->shortcutKeyModel()->keysOfKerno(id))
        new DeleteKernoShortcutKeyCommand(key, file(), this);
}

void DeleteKernoCommand::run(bool forward) {
    const KernoBatch batch(hasParent() ? nullptr : batches());
    RecordCommand::run(forward);
}
