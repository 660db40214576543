import QtQuick 2.15
import "../Components"

// A value that a source has, to be taken away.
Rectangle {
    id: root

    property alias text: _text.text
    property real maximumWidth: 0
    readonly property color __ink: "#012a55"

    signal removed()

    width: Math.min(_text.implicitWidth + _delete.width + Units.dp(24), maximumWidth)
    height: Units.dp(24)
    radius: 5
    color: "#dcdcdc"

    PlainText {
        id: _text
        anchors { left: parent.left; leftMargin: Units.dp(8); right: _delete.left; rightMargin: Units.dp(8) }
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideRight
        color: root.__ink
        font.pixelSize: ApplicationStyle.label_font_size
    }
    IconButton {
        id: _delete
        objectName: "removeValue"
        anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        // Its ground is pale in both themes.
        icon: "delete"
        themed: false
        pressedLook: false
        iconSize: Units.dp(16)
        enabled: CentralManager.canMutate
        tooltip: qsTr("Remove this value.")
        onClicked: root.removed()
    }
}
