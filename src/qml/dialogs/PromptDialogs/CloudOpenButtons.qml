import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// What can be done in the cloud's open dialog beside choosing a project.
RowLayout {
    id: root

    property bool creating: false

    signal cancelled()
    signal backRequested()
    signal uploadRequested()
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
        visible: !root.creating
        text: qsTr("Upload Project")
        onClicked: root.uploadRequested()
    }
    StyledButton {
        visible: root.creating
        text: qsTr("Open Existing")
        onClicked: root.backRequested()
    }
    StyledButton {
        primary: root.creating
        text: qsTr("New Project")
        onClicked: root.newRequested()
    }
}
