import QtQuick 2.15
import "../Components"

// Stands over the search panel while a search waits for the texts of the project, and lets the user give that up.
Rectangle {
    radius: Units.dp(8)
    color: Qt.rgba(ApplicationStyle.dialog_background_color.r, ApplicationStyle.dialog_background_color.g,
                   ApplicationStyle.dialog_background_color.b, 0.92)

    MouseArea { anchors.fill: parent }

    Column {
        anchors.centerIn: parent
        spacing: Units.dp(12)

        DialogLabel {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Loading texts: %1 of %2").arg(krnFile.textsHere).arg(krnFile.textsExpected)
        }
        StyledButton {
            objectName: "stopSearchWait"
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Stop")
            onClicked: krnFile.cancelTextWait()
        }
    }
}
