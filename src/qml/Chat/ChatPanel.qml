import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// What the people of a project write to each other, in the corner of the window.
FocusScope {
    id: root

    // The window that it stands in.
    property real windowWidth: 0
    property real windowHeight: 0
    readonly property real smallest: Units.dp(100)
    property real __widthShare: 0.25
    property real __heightShare: 0.7

    width: __within(__widthShare * windowWidth, windowWidth)
    height: __within(__heightShare * windowHeight, windowHeight)
    visible: CentralManager.showChatPanel && CentralManager.hasFileOpen
    z: 2

    function __within(size, most) {
        return Math.min(Math.max(size, smallest), Math.max(most, smallest))
    }

    function send(message) {
        var record = instantiator.chatMessage()
        record.author = CentralManager.currentAuthor
        record.message = message
        krnFile.saveChatMessage(record)
    }

    function remove(chatMessageId) {
        var record = instantiator.chatMessage()
        record.chatMessageId = chatMessageId
        krnFile.deleteChatMessage(record)
    }

    onVisibleChanged: {
        if (!visible)
            return
        CentralManager.newChatMessage = false
        _follow.restart()
        forceActiveFocus()
    }
    Keys.onEscapePressed: CentralManager.showChatPanel = false

    // The first filling is a reset; what is inserted after it is new.
    Connections {
        target: _messages.model
        function onRowsInserted() {
            if (!root.visible)
                CentralManager.newChatMessage = true
            _follow.restart()
        }
    }
    Connections {
        target: CentralManager
        function onHasFileOpenChanged() { CentralManager.newChatMessage = false }
    }

    Rectangle {
        anchors.fill: parent
        // The colours of the authors' lines need the strongest ground of the theme.
        color: ApplicationStyle.source_background_color
        border { width: 1; color: ApplicationStyle.border_color }
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    // Messages take their places one after another; meanwhile the view stays at the last.
    Timer {
        id: _follow
        interval: 500
        onTriggered: _view.toEnd()
    }

    StyledScrollView {
        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: _entry.top }
        anchors { margins: 1; topMargin: Units.dp(8) }

        Flickable {
            id: _view
            contentWidth: width
            contentHeight: _column.height
            boundsBehavior: Flickable.StopAtBounds
            onContentHeightChanged: {
                if (_follow.running)
                    toEnd()
            }

            function toEnd() {
                contentY = Math.max(0, contentHeight - height)
            }

            Column {
                id: _column
                width: _view.width
                spacing: Units.dp(8)
                bottomPadding: Units.dp(8)

                Repeater {
                    id: _messages
                    model: krnFile.getChatModel()

                    Loader {
                        id: _loader

                        property var row: model

                        width: _column.width
                        asynchronous: true
                        sourceComponent: ChatItem {
                            width: _loader.width
                            message: _loader.row.message
                            author: _loader.row.author
                            timestamp: _loader.row.timestamp
                            onRemoveRequested: root.remove(_loader.row.chatMessageId)
                        }
                    }
                }
            }
        }
    }

    PlainText {
        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: _entry.top }
        anchors.margins: ApplicationStyle.default_dialog_margin
        visible: _messages.count === 0
        text: qsTr("No messages yet.")
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        color: ApplicationStyle.dialog_text_color_alternative
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }

    ChatEntry {
        id: _entry
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        visible: CentralManager.canMutate
        height: visible ? wantedHeight : 0
        mostHeight: root.height - Units.dp(40)
        focus: true
        onSent: root.send(message)
    }

    ChatEdge {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: Units.dp(8)
        cursorShape: Qt.SizeVerCursor
        onDragged: root.__heightShare = root.__within(root.height - y, root.windowHeight) / root.windowHeight
    }
    ChatEdge {
        anchors { top: parent.top; bottom: parent.bottom; right: parent.right }
        width: Units.dp(8)
        cursorShape: Qt.SizeHorCursor
        onDragged: root.__widthShare = root.__within(root.width + x, root.windowWidth) / root.windowWidth
    }
}
