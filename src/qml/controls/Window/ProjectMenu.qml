import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// What can be done with whole projects.
StyledMenu {
    id: root

    property SaveProjectDialog saveDialog
    readonly property bool __hasSource: CentralManager.currentSourceId > 0

    MenuItem {
        text: qsTr("Open New or Existing")
        onTriggered: CentralManager.raiseOpenDialog(true)
    }
    MenuItem {
        text: qsTr("Save As...")
        enabled: root.__hasSource
        onTriggered: {
            if (CentralManager.cloud)
                CentralManager.saveAsRemote = 1
            else
                root.saveDialog.ask(root.saveDialog.saveAs)
        }
    }
    MenuItem {
        text: qsTr("Download Project")
        visible: CentralManager.cloud
        enabled: root.__hasSource
        onTriggered: root.saveDialog.ask(root.saveDialog.download)
    }
    MenuItem {
        text: qsTr("Merge Projects")
        enabled: root.__hasSource
        onTriggered: CentralManager.showMergeProjectsDialog = true
    }
    MenuItem {
        text: qsTr("Manage Projects")
        onTriggered: CentralManager.pageOpened(appHelper.manageProjects())
    }
}
