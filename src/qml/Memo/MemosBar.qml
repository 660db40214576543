import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The memos of a text, each beside the line at which its passage begins. A passage that is dropped here gets a memo.
Item {
    id: root

    property alias model: _memos.model
    property Item textItem: null
    readonly property bool notesShown: CentralManager.showMemosPanel && !CentralManager.showQueryScreen

    MouseArea {
        anchors.fill: parent
        onDoubleClicked: CentralManager.showMemosPanel = !CentralManager.showMemosPanel
    }

    CustomRepeater {
        id: _memos

        MemoItem {
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
            onLeft: {
                if (root.textItem)
                    root.textItem.forceActiveFocus()
            }
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
