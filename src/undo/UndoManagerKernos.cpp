#include "undo/UndoManager.h"

#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "project/KRNFile.h"
#include "undo/GroupCommands.h"
#include "undo/HighlightCommands.h"
#include "undo/KernoCommands.h"
#include "undo/RecodingCommands.h"

void UndoManager::addHighlight(const Highlight& highlight) {
    performAndFinish([&] { return new AddHighlightCommand(highlight, m_file); });
}

void UndoManager::tryAddHighlightByShortcut(const Highlight& highlight, const QString& shortcutKey) {
    const KernoShortcutKey key = m_file->shortcutKeyModel()->record(shortcutKey.toUpper());
    if (!key.isValid())
        return;
    Highlight coded = ownCopy(highlight);
    coded.setKernoId(key.kernoId());
    addHighlight(coded);
}

void UndoManager::addHighlightToNewKerno(const Highlight& highlight, const Kerno& kerno) {
    m_macroText = tr("Code into new Kerno.");
    m_macroPending = true;
    if (perform([&] { return new AddKernoCommand(kerno, m_file); }))
        pushOrDefer(new AddHighlightCommand(highlight, m_file, true));
    flushMacro();
    finish();
}

void UndoManager::deleteHighlight(int id) {
    performAndFinish([&] { return new DeleteHighlightCommand(id, m_file); });
}

void UndoManager::addKerno(const QVariantMap& data) {
    performAndFinish([&] {
        return new AddKernoCommand(data.value(QStringLiteral("title")).toString(),
                                   data.value(QStringLiteral("parentKernoId")).toInt(),
                                   data.value(QStringLiteral("x")).toInt(),
                                   data.value(QStringLiteral("y")).toInt(), m_file);
    });
}

void UndoManager::updateKerno(const Kerno& kerno, const QVariantList&) {
    updateKerno(kerno);
}

void UndoManager::updateKerno(const Kerno& kerno) {
    performAndFinish([&] { return new UpdateKernoCommand(kerno, m_file); });
}

void UndoManager::deleteKerno(int kernoId) {
    performAndFinish([&] { return new DeleteKernoCommand(kernoId, m_file); });
}

void UndoManager::duplicateKerno(int kernoId) {
    perform([&] { return new DuplicateKernoCommand(kernoId, m_file); });
}

void UndoManager::mergeKernos(int kernoId1, int kernoId2, const QString& newKernoName) {
    perform([&] { return new MergeKernosCommand(kernoId1, kernoId2, newKernoName, m_file); });
}

void UndoManager::addGroup(int groupId, const QString& title) {
    perform([&]() -> FileManipulationCommand* {
        Group group = m_file->groupModel()->record(groupId);
        if (group.isValid()) {
            group.setTitle(title);
            return new UpdateGroupCommand(group, m_file);
        }
        return new AddGroupCommand(Group(-1, title, true), m_file);
    });
}

void UndoManager::deleteGroup(int modelId) {
    performAndFinish([&] { return new DeleteGroupCommand(modelId, m_file); });
}

void UndoManager::addKernoGroup(int kernoId, int groupId) {
    perform([&] {
        const bool exists = m_file->kernoGroupModel()->link(kernoId, groupId).isValid();
        return exists ? nullptr : new AddKernoGroupCommand(KernoGroup(-1, groupId, kernoId), m_file);
    });
}

void UndoManager::deleteKernoGroup(int kernoId, int groupId) {
    perform([&] {
        const KernoGroup link = m_file->kernoGroupModel()->link(kernoId, groupId);
        return link.isValid() ? new DeleteKernoGroupCommand(link, m_file) : nullptr;
    });
}

void UndoManager::setKernoShortcut(const QString& key, int kernoId) {
    if (key.isEmpty())
        return;
    performAndFinish([&]() -> FileManipulationCommand* {
        if (kernoId < 1)
            return new DeleteKernoShortcutKeyCommand(key, m_file);
        KernoShortcutKey bound = m_file->shortcutKeyModel()->record(key);
        if (!bound.isValid())
            return new AddKernoShortcutKeyCommand(key, kernoId, m_file);
        bound.setKernoId(kernoId);
        return new UpdateKernoShortcutKeyCommand(bound, m_file);
    });
}
