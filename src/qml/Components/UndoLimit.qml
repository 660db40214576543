import QtQuick 2.15

// Keeps undo and redo to what was done since `start()`; before it and after `end()` there is no limit.
QtObject {
    id: root

    property int limit: -1
    property bool undidSomething: false
    readonly property bool canUndo: undoManager.canUndo && (limit < 0 || undoManager.index > limit)
    readonly property bool canRedo: undoManager.canRedo && (limit < 0 || undidSomething)

    function start() {
        limit = undoManager.index
        undidSomething = false
    }

    function end() {
        limit = -1
    }

    function undo() {
        if (!canUndo)
            return
        undidSomething = true
        undoManager.undo()
    }

    function redo() {
        if (canRedo)
            undoManager.redo()
    }
}
