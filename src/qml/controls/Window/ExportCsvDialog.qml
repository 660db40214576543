import QtQuick 2.15
import QtQuick.Dialogs 1.3
import "../../Components"
import "../../Utils.js" as Utils

// Asks for a folder, and writes the open project there as tables.
FileDialog {
    id: root

    title: qsTr("Select CSV export folder.")
    folder: shortcuts.documents
    selectFolder: true

    // Later: a progress may come up, for which the dialog has to be gone.
    onAccepted: Qt.callLater(__write)

    function __write() {
        var path = Utils.filePathFromUrl(fileUrl)
        if (!appHelper.isDirectoryWritable(path)) {
            CentralManager.showAlert(qsTr("Export Error"), Utils.filled(
                qsTr("The selected CSV export output directory is not writable.\n\nDirectory: %1"), path))
        } else if (!krnFile.exportAsCSV(path)) {
            var reason = appHelper.lastExportError()
            CentralManager.showAlert(qsTr("Export Error"), qsTr("An error occurred during CSV export!")
                                     + (reason ? "\n\n" + reason : ""))
        }
    }
}
