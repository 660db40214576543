#include "undo/UndoManager.h"

#include "project/KRNFile.h"
#include "link/DataHelper.h"
#include "undo/FileManipulationCommand.h"

#include <QDebug>
#include <QEventLoop>
#include <QThreadPool>
#include <QUndoStack>

UndoManager::UndoManager(KRNFile* file, QObject* parent)
    : QObject(parent), m_eventLoop(new QEventLoop(this)), m_undoStack(new QUndoStack(this)), m_file(file),
      m_threadPool(new QThreadPool(this)) {
    m_threadPool->setMaxThreadCount(1);
    connect(m_undoStack, &QUndoStack::canUndoChanged, this, [this] { emit canUndoChanged(); });
    connect(m_undoStack, &QUndoStack::canRedoChanged, this, [this] { emit canRedoChanged(); });
    connect(m_undoStack, &QUndoStack::undoTextChanged, this, [this] { emit undoTextChanged(); });
    connect(m_undoStack, &QUndoStack::redoTextChanged, this, [this] { emit redoTextChanged(); });
    connect(m_undoStack, &QUndoStack::indexChanged, this, [this] {
        emit countChanged();
        emit indexChanged();
    });
}

UndoManager::~UndoManager() {
    // The stack would tell of its end through this object, which is half gone by then.
    m_undoStack->disconnect(this);
    qDeleteAll(m_pendingCommands);
}

bool UndoManager::canUndo() const {
    return m_undoStack->canUndo() && !m_busy;
}

bool UndoManager::canRedo() const {
    return m_undoStack->canRedo() && !m_busy;
}

QString UndoManager::undoText() const {
    return m_undoStack->undoText();
}

QString UndoManager::redoText() const {
    return m_undoStack->redoText();
}

int UndoManager::count() const {
    return m_undoStack->count();
}

int UndoManager::index() const {
    return m_undoStack->index();
}

// Mutations are dropped while no project is open, while the link is down and for readers: a step that is
// recorded all the same, or moved over, would claim a change that never happened.
bool UndoManager::mayChange() const {
    return m_file->isOpened() && m_file->dataHelper()->isConnected() && m_file->canMutate(true);
}

bool UndoManager::push(FileManipulationCommand* command) {
    if (mayChange())
        return pushOrDefer(command);
    delete command;
    return false;
}

bool UndoManager::pushOrDefer(FileManipulationCommand* command) {
    if (!command->isValid()) {
        delete command;
        return false;
    }
    if (m_macroPending) {
        m_pendingCommands.append(command);
        return true;
    }
    if (m_macroRequested && !m_macroOpen) {
        m_undoStack->beginMacro(m_macroText);
        m_macroOpen = true;
    }
    m_undoStack->push(command);
    return true;
}

bool UndoManager::perform(const Builder& build) {
    FileManipulationCommand* command = mayChange() ? build() : nullptr;
    return command && pushOrDefer(command);
}

void UndoManager::performAndFinish(const Builder& build) {
    perform(build);
    finish();
}

void UndoManager::beginMacro(const QString& text) {
    endMacro();
    m_macroText = text;
    m_macroRequested = true;
}

void UndoManager::endMacro() {
    m_macroRequested = false;
    if (!m_macroOpen)
        return;
    m_macroOpen = false;
    m_undoStack->endMacro();
    finish();
}

void UndoManager::flushMacro() {
    m_macroPending = false;
    if (m_pendingCommands.isEmpty()) {
        qDebug() << "No pending commands. Ignoring macro:" << m_macroText;
        return;
    }
    m_undoStack->beginMacro(m_macroText);
    for (QUndoCommand* command : qAsConst(m_pendingCommands))
        m_undoStack->push(command);
    m_pendingCommands.clear();
    m_undoStack->endMacro();
}

void UndoManager::finish() {
    if (m_eventLoop->isRunning())
        m_eventLoop->exit(0);
    m_busy = false;
    emit canUndoChanged();
    emit canRedoChanged();
}

void UndoManager::undo() {
    if (m_busy || !m_undoStack->canUndo() || !mayChange())
        return;
    m_undoStack->undo();
    finish();
}

void UndoManager::redo() {
    if (m_busy || !m_undoStack->canRedo() || !mayChange())
        return;
    m_undoStack->redo();
    finish();
}

void UndoManager::clearStack() {
    m_macroOpen = false;
    m_undoStack->clear();
    finish();
}
