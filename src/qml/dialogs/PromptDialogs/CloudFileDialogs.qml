import QtQuick 2.15
import QtQuick.Dialogs 1.3

// The system's dialogs of the cloud's projects: files to send and to fetch, and the question before a project goes.
Item {
    id: root

    property var __project: null

    signal uploadChosen(url file)
    signal archiveChosen(url file)
    signal downloadChosen(var project, url file)
    signal removalConfirmed(var project)

    visible: false

    function askForUpload() { _upload.open() }

    function askForDownload(project) {
        __project = project
        _download.open()
    }

    function askForRemoval(project) {
        __project = project
        _remove.open()
    }

    FileDialog {
        id: _upload
        title: qsTr("Upload Project")
        folder: shortcuts.documents
        nameFilters: [qsTr("Kerno Files (*.krn *.KRN)"), qsTr("REFI-QDA archives (*.QDPX *qdpx)")]
        onAccepted: {
            if (fileUrl.toString().toLowerCase().endsWith(".qdpx"))
                root.archiveChosen(fileUrl)
            else
                root.uploadChosen(fileUrl)
        }
    }

    FileDialog {
        id: _download
        title: qsTr("Download Project")
        folder: shortcuts.documents
        selectExisting: false
        defaultSuffix: "krn"
        nameFilters: [qsTr("Kerno Files (*.krn *.KRN)")]
        onAccepted: root.downloadChosen(root.__project, fileUrl)
    }

    MessageDialog {
        id: _remove
        title: qsTr("Remove Project")
        text: root.__project
              ? qsTr("Do you really want to delete the project \"%1\" from the cloud? This can't be undone.")
                    .arg(root.__project.name) : ""
        icon: StandardIcon.Question
        standardButtons: StandardButton.Yes | StandardButton.No
        onYes: root.removalConfirmed(root.__project)
    }
}
