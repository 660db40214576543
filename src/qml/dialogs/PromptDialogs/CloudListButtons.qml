import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// What can be done with the lists of the cloud's projects.
RowLayout {
    id: root

    property bool failed: false
    property var selected: null

    signal refreshRequested()
    signal openRequested()

    spacing: ApplicationStyle.default_margin

    StyledButton {
        text: qsTr("Manage Account")
        onClicked: CentralManager.pageOpened(appHelper.manageAccount())
    }
    StyledButton {
        text: qsTr("Share Projects")
        onClicked: CentralManager.pageOpened(appHelper.manageProjects())
    }
    StyledButton {
        text: root.failed ? qsTr("Try again") : qsTr("Refresh")
        onClicked: root.refreshRequested()
    }
    Item { Layout.fillWidth: true }
    StyledButton {
        primary: true
        enabled: !!root.selected
        text: qsTr("Open Selected")
        onClicked: root.openRequested()
    }
}
