import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// Makes a memo of a passage that is dropped on it.
DropArea {
    keys: ["text"]
    enabled: CentralManager.canMutate

    onDropped: {
        undoManager.addMemo(Utils.fillPassage(instantiator.memo(), drop.source))
        CentralManager.hasUserSelectedText = false
    }
}
