#include "undo/UndoManager.h"

#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "undo/FileManipulationCommand.h"

#include <QDebug>
#include <QUndoStack>

UndoManager::UndoManager(KRNFile* file, QObject* parent)
    : QObject(parent), m_undoStack(new QUndoStack(this)), m_file(file) {
    connect(m_undoStack, &QUndoStack::canUndoChanged, this, [this] { emit canUndoChanged(); });
    connect(m_undoStack, &QUndoStack::canRedoChanged, this, [this] { emit canRedoChanged(); });
    connect(m_undoStack, &QUndoStack::undoTextChanged, this, [this] { emit undoTextChanged(); });
    connect(m_undoStack, &QUndoStack::redoTextChanged, this, [this] { emit redoTextChanged(); });
    connect(m_undoStack, &QUndoStack::indexChanged, this, [this] {
        emit countChanged();
        emit indexChanged();
    });
    connect(file->dataHelper(), &DataHelper::readFailed, this, [this] { ++m_failedReads; });
}

UndoManager::~UndoManager() {
    // The stack would tell of its end through this object, which is half gone by then.
    m_undoStack->disconnect(this);
}

bool UndoManager::canUndo() const {
    return m_undoStack->canUndo();
}

bool UndoManager::canRedo() const {
    return m_undoStack->canRedo();
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

// A command may also be invalid because there is nothing to change, which is no failure.
bool UndoManager::perform(const Builder& build) {
    if (!mayChange())
        return false;
    const int failedBefore = m_failedReads;
    const bool done = run(build());
    if (!done && m_failedReads != failedBefore)
        emit changeRefused();
    return done;
}

bool UndoManager::push(Command command) {
    return mayChange() && run(std::move(command));
}

bool UndoManager::run(Command command) {
    if (!command || !command->isValid())
        return false;
    if (m_macros > 0 && !m_macroOpen) {
        m_undoStack->beginMacro(m_macroText);
        m_macroOpen = true;
    }
    m_undoStack->push(command.release());
    return true;
}

void UndoManager::performAndFinish(const Builder& build) {
    perform(build);
    finish();
}

void UndoManager::beginMacro(const QString& text) {
    if (m_macros++ == 0)
        m_macroText = text;
}

void UndoManager::endMacro() {
    if (m_macros == 0 || --m_macros > 0)
        return;
    if (m_macroOpen)
        m_undoStack->endMacro();
    else
        qDebug() << "No pending commands. Ignoring macro:" << m_macroText;
    m_macroOpen = false;
    finish();
}

void UndoManager::finish() {
    emit canUndoChanged();
    emit canRedoChanged();
}

void UndoManager::undo() {
    if (!m_undoStack->canUndo() || !mayChange())
        return;
    m_undoStack->undo();
    finish();
}

void UndoManager::redo() {
    if (!m_undoStack->canRedo() || !mayChange())
        return;
    m_undoStack->redo();
    finish();
}

void UndoManager::clearStack() {
    m_macros = 0;
    m_macroOpen = false;
    m_undoStack->clear();
    finish();
}
