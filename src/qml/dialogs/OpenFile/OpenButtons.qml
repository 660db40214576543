import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// What can be done in the open dialog beside choosing a recent project.
RowLayout {
    id: root

    property bool creating: false

    signal cancelled()
    signal existingRequested()
    signal newRequested()

    spacing: ApplicationStyle.default_margin

    StyledButton {
        visible: CentralManager.hasFileOpen
        text: qsTr("Cancel")
        onClicked: root.cancelled()
    }
    StyledButton {
        text: qsTr("Help")
        onClicked: CentralManager.pageOpened(appHelper.goToWebsite())
    }
    Item { Layout.fillWidth: true }
    StyledButton {
        text: root.creating ? qsTr("Open Existing") : qsTr("Open Other...")
        onClicked: root.existingRequested()
    }
    StyledButton {
        primary: root.creating
        text: qsTr("New Project")
        onClicked: root.newRequested()
    }
}
