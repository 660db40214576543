import QtQuick 2.15
import "../../Components"

// A veil over the screen while the link is down.
Item {
    z: 99

    Rectangle {
        anchors.fill: parent
        color: "white"
        opacity: 0.2
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    DialogLabel {
        anchors.centerIn: parent
        horizontalAlignment: Text.AlignHCenter
        font.pixelSize: ApplicationStyle.dialog_header_font_size
        text: CentralManager.reconnect
              ? qsTr("Connection lost, reconnecting...")
              : qsTr("Connection lost because another session has been started.\nThis client will not reconnect.")
    }
}
