import QtQuick 2.15
import QtQuick.Dialogs 1.3
import QtQuick.Layouts 1.15
import "../../Components"
import "../../Utils.js" as Utils

// Asks for a project to take part in a merge: a file of this computer, or one of the cloud's list.
ColumnLayout {
    id: root

    property bool asking: false
    property var __then: null

    signal failed(string message)

    spacing: ApplicationStyle.default_margin
    visible: asking && CentralManager.cloud

    // `then` gets the project's identity.
    function ask(title, then) {
        __then = then
        if (CentralManager.cloud) {
            asking = true
            _projects.update()
        } else {
            _fileDialog.title = title
            _fileDialog.open()
        }
    }

    function __choose(project) {
        asking = false
        if (project)
            __then(project)
    }

    Keys.onEscapePressed: __choose(null)

    CloudProjects {
        id: _projects
        onErrorChanged: {
            if (error !== "")
                root.failed(error)
        }
    }

    CloudProjectsList {
        id: _list
        objectName: "mergeChoice"
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(230)
        title: qsTr("Projects in the Cloud:")
        emptyText: _projects.busy ? "" : qsTr("No projects found in the Cloud")
        projects: _projects.own.concat(_projects.shared)
        onActivated: root.__choose(project)
    }
    RowLayout {
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.__choose(null) }
        StyledButton {
            primary: true
            enabled: !!_list.selected
            text: qsTr("OK")
            onClicked: root.__choose(_list.selected)
        }
    }

    FileDialog {
        id: _fileDialog
        folder: shortcuts.documents
        nameFilters: [qsTr("Kerno Files (*.krn *.KRN)")]
        onAccepted: root.__choose({ name: Utils.filePathFromUrl(fileUrl), project_uuid: "" })
    }
}
