import QtQuick 2.15
import "../Components"

// Makes a memo of a passage that is dropped on it.
DropArea {
    keys: ["text"]
    enabled: CentralManager.canMutate

    onDropped: {
        var memo = instantiator.memo()
        memo.start = drop.source.start
        memo.length = drop.source.length
        memo.questionId = drop.source.questionId
        memo.sourceId = drop.source.sourceId
        undoManager.addMemo(memo)
        CentralManager.hasUserSelectedText = false
    }
}
