import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// Lies over a text: a press inside the selection takes the passage up, any other goes on to the text.
MouseArea {
    id: root

    property Item textItem: null
    // The answer item: its ids, its offset, and the shared drag symbol.
    property Item item: null
    property int quickClick: 800

    property bool __carrying: false
    property bool __unfoldSearch: false
    property double __pressedAt: 0
    property int __pressedAlone: 0

    signal clickedForMenu(int position)

    acceptedButtons: Qt.LeftButton | Qt.RightButton
    cursorShape: __carrying ? Qt.DragMoveCursor : Qt.IBeamCursor
    preventStealing: true
    drag.target: __carrying && item ? item.dragItem : null
    drag.smoothed: false
    drag.threshold: 0

    function isBlank(text) {
        return text.trim() === ""
    }

    // Whether a press at the character position takes up the selection.
    function startsDrag(position) {
        return position > textItem.selectionStart && position <= textItem.selectionEnd
                && !isBlank(textItem.selectedText)
    }

    // Writes the selected passage, in positions of the whole answer, into the item or record.
    function fillPassage(target) {
        return Utils.fillPassage(target, {
            start: textItem.selectionStart + item.offset,
            length: textItem.selectionEnd - textItem.selectionStart,
            sourceId: item.sourceId,
            questionId: item.questionId
        })
    }

    // A key codes when it is let go. What was held with it counts at its press: of Ctrl+C, Ctrl may go up first.
    function keyPressed(event) {
        if (!event.isAutoRepeat)
            __pressedAlone = event.modifiers === Qt.NoModifier ? event.key : 0
        event.accepted = event.modifiers === Qt.ControlModifier
                && (event.key === Qt.Key_K || event.key === Qt.Key_M)
        if (!event.accepted)
            return
        if (!CentralManager.canMutate)
            CentralManager.tell(qsTr("This project can be read only."))
        else if (isBlank(textItem.selectedText))
            CentralManager.tell(qsTr("Select a passage first."))
        else if (event.key === Qt.Key_K)
            CentralManager.passageToCode = fillPassage({})
        else
            __writeMemo()
    }

    function __writeMemo() {
        undoManager.addMemo(fillPassage(instantiator.memo()))
        CentralManager.hasUserSelectedText = false
    }

    function keyReleased(event) {
        if (event.isAutoRepeat || event.key !== __pressedAlone)
            return
        __pressedAlone = 0
        if (event.text === "" || event.modifiers !== Qt.NoModifier || isBlank(event.text)
                || isBlank(textItem.selectedText))
            return
        undoManager.tryAddHighlightByShortcut(fillPassage(instantiator.highlight()), event.text)
    }

    function __pickUp(mouse) {
        var symbol = item.dragItem
        fillPassage(symbol)
        symbol.pickUp(mapToItem(symbol.parent, mouse.x, mouse.y))
        __carrying = true
        __pressedAt = Date.now()
        if (CentralManager.showSearchPanel && !CentralManager.searchPanelMinimized) {
            CentralManager.searchPanelMinimized = true
            __unfoldSearch = true
        }
    }

    function __putDown(dropped) {
        if (!__carrying)
            return
        if (dropped && Date.now() - __pressedAt < quickClick)
            textItem.deselect()
        if (__unfoldSearch)
            CentralManager.searchPanelMinimized = false
        __unfoldSearch = false
        __carrying = false
        if (dropped)
            item.dragItem.drop()
        else
            item.dragItem.cancel()
    }

    onPressed: {
        if (mouse.button === Qt.RightButton)
            return
        if (item.dragItem && startsDrag(textItem.positionAt(mouse.x, mouse.y)))
            __pickUp(mouse)
        else
            mouse.accepted = false
    }
    onReleased: __putDown(true)
    onCanceled: __putDown(false)
    onClicked: {
        if (mouse.button === Qt.RightButton)
            clickedForMenu(textItem.positionAt(mouse.x, mouse.y))
    }
}
