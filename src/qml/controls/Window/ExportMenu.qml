import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// What can be made of the open project.
StyledMenu {
    id: root

    property SaveProjectDialog saveDialog
    property ExportCsvDialog csvDialog
    readonly property bool __hasSource: CentralManager.currentSourceId > 0

    // In the cloud a part becomes a project there, on this computer a file.
    function __export(remoteKind, localMode) {
        if (CentralManager.cloud)
            CentralManager.saveAsRemote = remoteKind
        else
            saveDialog.ask(localMode)
    }

    MenuItem {
        text: qsTr("Create Report")
        enabled: root.__hasSource
        onTriggered: CentralManager.reportRequested()
    }
    MenuItem {
        text: qsTr("Create WordCloud")
        enabled: root.__hasSource
        onTriggered: CentralManager.makeWordCloud()
    }
    MenuItem {
        text: qsTr("Export Spreadsheet (CSV)")
        enabled: root.__hasSource
        onTriggered: csvDialog.open()
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Export Sources as Word Document")
        enabled: root.__hasSource
        onTriggered: CentralManager.showExportDOCXDialog = 1
    }
    MenuItem {
        text: qsTr("Individual Sources as Word Document")
        enabled: root.__hasSource
        onTriggered: CentralManager.showExportDOCXDialog = 2
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Export as REFI-QDA")
        enabled: root.__hasSource
        onTriggered: CentralManager.showExportQDPXDialog = true
    }
    MenuItem {
        text: qsTr("Export Project (Sources Only)")
        enabled: root.__hasSource
        onTriggered: root.__export(2, root.saveDialog.sourcesOnly)
    }
    MenuItem {
        text: qsTr("Export Project (Structure Only)")
        enabled: root.__hasSource
        onTriggered: root.__export(3, root.saveDialog.structureOnly)
    }
}
