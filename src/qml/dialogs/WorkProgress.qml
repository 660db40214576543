import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// How far long work has come, and the way to end it.
RowLayout {
    id: root

    property string text
    property int percent: 0
    property bool __ending: false

    signal cancelled()

    spacing: ApplicationStyle.default_dialog_margin

    onVisibleChanged: __ending = false

    ColumnLayout {
        spacing: Units.dp(6)

        DialogLabel {
            Layout.fillWidth: true
            text: root.__ending ? qsTr("Stopping...") : root.text
            elide: Text.ElideRight
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        FieldFrame {
            Layout.fillWidth: true
            implicitHeight: Units.dp(12)
            Accessible.role: Accessible.ProgressBar
            Accessible.name: root.text

            Rectangle {
                anchors { left: parent.left; top: parent.top; bottom: parent.bottom; margins: 1 }
                width: (parent.width - 2) * Math.max(0, Math.min(100, root.percent)) / 100
                radius: parent.radius
                color: ApplicationStyle.orrange_button_color
            }
        }
    }
    StyledButton {
        objectName: "cancelWork"
        Layout.alignment: Qt.AlignBottom
        text: qsTr("Cancel")
        enabled: !root.__ending
        onClicked: {
            root.__ending = true
            root.cancelled()
        }
    }
}
