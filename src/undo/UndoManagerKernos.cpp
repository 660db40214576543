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
    performAndFinish([&] { return std::make_unique<AddHighlightCommand>(highlight, m_file); });
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
    Highlight coded = ownCopy(highlight);
    beginMacro(tr("Code into new Kerno."));
    const bool isAdded = perform([&] {
        auto command = std::make_unique<AddKernoCommand>(kerno, m_file);
        coded.setKernoId(command->record().id());
        return command;
    });
    if (isAdded)
        perform([&] { return std::make_unique<AddHighlightCommand>(coded, m_file, true); });
    endMacro();
}

void UndoManager::deleteHighlight(int id) {
    performAndFinish([&] { return std::make_unique<DeleteHighlightCommand>(id, m_file); });
}

void UndoManager::addKerno(const QVariantMap& data) {
    performAndFinish([&] {
        return std::make_unique<AddKernoCommand>(data.value(QStringLiteral("title")).toString(),
                                                 data.value(QStringLiteral("parentKernoId")).toInt(),
                                                 data.value(QStringLiteral("x")).toInt(),
                                                 data.value(QStringLiteral("y")).toInt(), m_file);
    });
}

void UndoManager::updateKerno(const Kerno& kerno, const QVariantList&) {
    updateKerno(kerno);
}

void UndoManager::updateKerno(const Kerno& kerno) {
    performAndFinish([&] { return std::make_unique<UpdateKernoCommand>(kerno, m_file); });
}

void UndoManager::deleteKerno(int kernoId) {
    performAndFinish([&] { return std::make_unique<DeleteKernoCommand>(kernoId, m_file); });
}

void UndoManager::duplicateKerno(int kernoId) {
    perform([&] { return std::make_unique<DuplicateKernoCommand>(kernoId, m_file); });
}

void UndoManager::mergeKernos(int kernoId1, int kernoId2, const QString& newKernoName) {
    perform([&] { return std::make_unique<MergeKernosCommand>(kernoId1, kernoId2, newKernoName, m_file); });
}

void UndoManager::addGroup(int groupId, const QString& title) {
    perform([&]() -> Command {
        Group group = m_file->groupModel()->record(groupId);
        if (group.isValid()) {
            group.setTitle(title);
            return std::make_unique<UpdateGroupCommand>(group, m_file);
        }
        return std::make_unique<AddGroupCommand>(Group(-1, title, true), m_file);
    });
}

void UndoManager::deleteGroup(int modelId) {
    performAndFinish([&] { return std::make_unique<DeleteGroupCommand>(modelId, m_file); });
}

void UndoManager::addKernoGroup(int kernoId, int groupId) {
    perform([&]() -> Command {
        if (m_file->kernoGroupModel()->link(kernoId, groupId).isValid())
            return nullptr;
        return std::make_unique<AddKernoGroupCommand>(KernoGroup(-1, groupId, kernoId), m_file);
    });
}

void UndoManager::deleteKernoGroup(int kernoId, int groupId) {
    perform([&]() -> Command {
        const KernoGroup link = m_file->kernoGroupModel()->link(kernoId, groupId);
        if (!link.isValid())
            return nullptr;
        return std::make_unique<DeleteKernoGroupCommand>(link, m_file);
    });
}

void UndoManager::setKernoShortcut(const QString& key, int kernoId) {
    if (key.isEmpty())
        return;
    performAndFinish([&]() -> Command {
        if (kernoId < 1)
            return std::make_unique<DeleteKernoShortcutKeyCommand>(key, m_file);
        KernoShortcutKey bound = m_file->shortcutKeyModel()->record(key);
        if (!bound.isValid())
            return std::make_unique<AddKernoShortcutKeyCommand>(key, kernoId, m_file);
        bound.setKernoId(kernoId);
        return std::make_unique<UpdateKernoShortcutKeyCommand>(bound, m_file);
    });
}
