import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The field for a new message. Its upper edge makes it higher.
FocusScope {
    id: root

    property real mostHeight: Units.dp(400)
    readonly property real leastHeight: 1.75 * CentralManager.lineHeight + 2 * Units.dp(8)
    readonly property real wantedHeight: Math.max(leastHeight, Math.min(__dragged, mostHeight))
                                         + _handle.height + ApplicationStyle.default_margin
    readonly property bool __empty: _text.text.trim() === ""
    property real __dragged: 0

    signal sent(string message)

    function send() {
        if (__empty)
            return
        sent(_text.text.trim())
        // A cursor that stands behind the end would be in the way.
        _text.cursorPosition = 0
        _text.text = ""
    }

    ChatEdge {
        id: _handle
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: Units.dp(10)
        cursorShape: Qt.SizeVerCursor
        onDragged: root.__dragged = Math.max(root.leastHeight, Math.min(_text.height - y, root.mostHeight))

        Rectangle {
            anchors.centerIn: parent
            width: Units.dp(36)
            height: Units.dp(3)
            radius: height / 2
            color: ApplicationStyle.border_color
        }
    }

    StyledTextArea {
        id: _text
        objectName: "chatMessage"
        anchors { left: parent.left; right: _send.left; top: _handle.bottom; bottom: parent.bottom }
        anchors { leftMargin: ApplicationStyle.default_margin; rightMargin: Units.dp(6) }
        anchors.bottomMargin: ApplicationStyle.default_margin
        focus: true
        horizontalAlignment: TextEdit.AlignRight
        font { family: ApplicationStyle.source_text_font_family; pixelSize: ApplicationStyle.dialog_text_font_size_small }
        Accessible.name: qsTr("Message")
        Keys.onReturnPressed: __sendOrBreak(event)
        Keys.onEnterPressed: __sendOrBreak(event)

        function __sendOrBreak(event) {
            event.accepted = !(event.modifiers & Qt.ShiftModifier)
            if (event.accepted)
                root.send()
        }
    }

    IconButton {
        id: _send
        anchors { right: parent.right; verticalCenter: _text.verticalCenter; rightMargin: ApplicationStyle.default_margin }
        objectName: "sendMessage"
        icon: "send"
        enabled: !root.__empty
        tooltip: qsTr("Send")
        onClicked: root.send()
    }
}
