import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// One message: who wrote it and when, over a bubble that points to its author's side.
Item {
    id: root

    property string message
    property string author
    property date timestamp
    readonly property bool own: author === CentralManager.currentAuthor
    readonly property color background: own ? ApplicationStyle.chat_own_background_color
                                            : ApplicationStyle.chat_other_background_color
    readonly property real __margin: Units.dp(12)

    signal removeRequested()

    height: _head.height + _bubble.height + Units.dp(3)
    Accessible.role: Accessible.ListItem
    Accessible.name: "%1: %2".arg(_head.text).arg(message)

    PlainText {
        id: _head
        anchors { left: parent.left; right: parent.right; leftMargin: root.__margin; rightMargin: root.__margin }
        text: Utils.filled("%1 - %2", root.author, Qt.formatDateTime(root.timestamp, "HH:mm  dd MMM yy"))
        horizontalAlignment: root.own ? Text.AlignRight : Text.AlignLeft
        elide: Text.ElideMiddle
        color: root.own ? ApplicationStyle.chat_own_text_color : ApplicationStyle.chat_other_text_color
        font.pixelSize: Units.dp(11)
    }

    Rectangle {
        id: _bubble
        anchors { top: _head.bottom; topMargin: Units.dp(3) }
        x: root.own ? root.width - width - root.__margin : root.__margin
        width: Math.min(_text.implicitWidth + 2 * _text.anchors.margins,
                        root.width - 2 * root.__margin - _delete.width - Units.dp(6))
        height: _text.contentHeight + 2 * _text.anchors.margins
        radius: Units.dp(6)
        color: root.background

        Rectangle {
            x: root.own ? parent.width - width / 2 - Units.dp(2) : Units.dp(2) - width / 2
            y: Units.dp(9)
            width: Units.dp(9)
            height: width
            rotation: 45
            color: root.background
        }

        PlainTextEdit {
            id: _text
            anchors { fill: parent; margins: Units.dp(8) }
            text: root.message
            readOnly: true
            color: "#151515"
            font { family: ApplicationStyle.source_text_font_family; pixelSize: ApplicationStyle.dialog_text_font_size_small }
        }
    }

    IconButton {
        id: _delete
        x: root.own ? _bubble.x - width - Units.dp(6) : _bubble.x + _bubble.width + Units.dp(6)
        anchors.verticalCenter: _bubble.verticalCenter
        visible: root.own || CentralManager.isUserProjectOwner
        enabled: CentralManager.canMutate
        icon: "delete"
        iconSize: Units.dp(16)
        tooltip: qsTr("Delete this message.")
        onClicked: root.removeRequested()
    }
}
