import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"
import "../Utils.js" as Utils

// The memos of a text, each beside the line at which its passage begins. A passage that is dropped here gets a memo.
// They are one stop for Tab; the arrows go from memo to memo, and Return into the note.
Item {
    id: root

    property alias model: _memos.model
    property Item textItem: null
    readonly property bool notesShown: CentralManager.showMemosPanel && !CentralManager.showQueryScreen

    // The keys are at a memo of that place.
    signal reached(real y, real height)

    activeFocusOnTab: _keys.shownCount > 0 || activeFocus
    Accessible.role: Accessible.List
    Accessible.name: _keys.current ? Utils.filled(qsTr("Memo: %1"), _keys.current.content) : qsTr("Memos")
    Accessible.focusable: true
    Accessible.focused: activeFocus

    function __leave() {
        if (textItem)
            textItem.forceActiveFocus()
    }

    function __showMenu(memo) {
        _menu.memoId = memo.memoId
        _menu.popupAt(memo, memo.width, 0)
    }

    Keys.onPressed: _keys.handle(event)

    BarKeys {
        id: _keys
        bar: root
        repeater: _memos
        idField: "memoId"
        onReached: root.reached(item.y, item.height)
        onEntered: item.enter()
        onRemoved: undoManager.deleteMemo(item.memoId)
        onMenuRequested: root.__showMenu(item)
        onLeft: root.__leave()
    }

    MouseArea {
        anchors.fill: parent
        onDoubleClicked: CentralManager.showMemosPanel = !CentralManager.showMemosPanel
    }

    CustomRepeater {
        id: _memos

        MemoItem {
            id: _memo
            // The model may announce rows before it has them; such a row has no values.
            visible: memoId > 0
            y: model.y1 || 0
            width: root.width
            memoId: model.memoId || -1
            content: model.content || ""
            start: model.start || 0
            length: model.length || 0
            notesShown: root.notesShown
            siblings: _memos.allItems
            hasKeyboard: _keys.current === _memo
            onLeft: root.__leave()
            onMenuByKeys: root.__showMenu(_memo)
            onMenuRequested: {
                _menu.memoId = memoId
                _menu.popup()
            }
            onSelectRequested: {
                if (root.textItem)
                    root.textItem.select(start, start + length)
            }
        }
    }

    MemoDropArea { anchors.fill: parent }

    StyledMenu {
        id: _menu

        property int memoId: -1

        MenuItem {
            text: qsTr("Remove Memo")
            enabled: CentralManager.canMutate
            onTriggered: undoManager.deleteMemo(_menu.memoId)
        }
    }
}
