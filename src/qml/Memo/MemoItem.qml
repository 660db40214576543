import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// A memo: its icon, and left of it the note while the memos panel is open.
Item {
    id: root

    property int memoId: -1
    property string content
    property int start: 0
    property int length: 0
    property bool notesShown: false
    property var siblings: []
    // The keys are at its icon.
    property bool hasKeyboard: false
    readonly property bool focused: memoId > 0 && !CentralManager.hasUserSelectedText
                                    && CentralManager.currentMemoId === memoId

    signal menuRequested()
    signal menuByKeys()
    signal selectRequested()
    // The keyboard goes back to where the passage is.
    signal left()

    height: Math.max(_icon.height, _note.visible ? _note.height : 0)
    z: focused ? 1 : 0

    onFocusedChanged: {
        if (focused) {
            selectRequested()
            if (notesShown)
                _text.forceActiveFocus()
        }
    }

    // The memos at the same place, in their order.
    function __stack() {
        return Utils.filter(siblings, function(item) { return item && item.memoId > 0 && item.y === root.y })
    }

    function __activateNext() {
        var stack = __stack()
        var next = stack[(stack.indexOf(root) + 1) % stack.length]
        CentralManager.hasUserSelectedText = false
        CentralManager.currentMemoId = -1
        CentralManager.currentMemoId = next.memoId
    }

    function activate() {
        CentralManager.hasUserSelectedText = false
        CentralManager.currentMemoId = -1
        CentralManager.currentMemoId = memoId
    }

    // Takes the keyboard into the note.
    function enter() {
        CentralManager.showMemosPanel = true
        activate()
    }

    function save() {
        if (_text.text === content || !CentralManager.canMutate)
            return
        var memo = krnFile.memo(memoId)
        memo.content = _text.text
        memo.author = CentralManager.currentAuthor
        undoManager.updateMemo(memo)
    }

    Rectangle {
        id: _note
        anchors { right: _icon.left; top: parent.top }
        width: CentralManager.memoColumnSize - 2
        height: Math.max(_icon.height, _text.contentHeight + 2 * Units.dp(5))
        visible: root.notesShown
        opacity: root.focused ? 1 : 0.9
        gradient: Gradient {
            GradientStop { position: 0; color: "#fff201" }
            GradientStop { position: 1; color: "#fffb41" }
        }

        PlainTextEdit {
            id: _text
            anchors { fill: parent; margins: Units.dp(5) }
            text: root.content
            readOnly: !CentralManager.canMutate
            color: "#151515"
            font { family: ApplicationStyle.source_text_font_family; pixelSize: CentralManager.sourceFontSize }
            Accessible.name: qsTr("Memo")
            Keys.onEscapePressed: root.left()
            Keys.onPressed: {
                event.accepted = Utils.asksForMenu(event)
                if (event.accepted)
                    root.menuByKeys()
            }
            onActiveFocusChanged: {
                if (!activeFocus) {
                    root.save()
                    if (CentralManager.currentMemoId === root.memoId)
                        CentralManager.currentMemoId = -1
                }
            }
        }

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            onPressed: {
                // Once the note has the focus, clicks place the cursor.
                mouse.accepted = mouse.button === Qt.RightButton || !_text.activeFocus
            }
            onClicked: {
                if (mouse.button === Qt.RightButton)
                    root.menuRequested()
                else
                    root.activate()
            }
            onPressAndHold: root.menuRequested()
        }
    }

    Image {
        id: _icon
        anchors { right: parent.right; top: parent.top }
        width: Units.dp(25)
        height: Units.dp(25)
        mipmap: true
        source: "qrc:///qml/images/%1.png".arg(root.focused ? "memo-icon-toggled" : "memo-icon")

        FocusRing { shown: root.hasKeyboard }

        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            onEntered: CentralManager.currentMemoId = root.memoId
            onExited: CentralManager.currentMemoId = -1
            onClicked: {
                if (mouse.button === Qt.RightButton)
                    root.menuRequested()
                else if (root.notesShown && root.focused)
                    root.__activateNext()
                else
                    root.activate()
            }
            onPressAndHold: root.menuRequested()
            onDoubleClicked: CentralManager.showMemosPanel = !CentralManager.showMemosPanel
        }
    }
}
