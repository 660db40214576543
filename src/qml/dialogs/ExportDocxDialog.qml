import QtQuick 2.15
import QtQuick.Dialogs 1.3
import "../Components"

// Asks for a file or, for documents of their own, a folder, and writes the sources there.
FileDialog {
    id: root

    readonly property bool separate: CentralManager.showExportDOCXDialog === 2

    title: qsTr("Export to Word (*.docx)")
    folder: shortcuts.documents
    selectExisting: separate
    selectFolder: separate
    defaultSuffix: "docx"
    nameFilters: separate ? ["*"] : [qsTr("Word Files (*.docx *.DOCX)")]

    Component.onCompleted: open()
    onRejected: CentralManager.showExportDOCXDialog = 0
    // Later: a progress may come up, for which the dialog has to be gone.
    onAccepted: Qt.callLater(__write)

    function __write() {
        var written = separate ? appHelper.exportDocxWithSeparateSources(fileUrl) : appHelper.exportDocx(fileUrl)
        if (!written) {
            var failure = qsTr("Failed to export to Word document!")
            var reason = appHelper.lastExportError()
            CentralManager.showStatusMessage(failure, 10000)
            CentralManager.showAlert(title, failure + (reason ? "\n\n" + reason : ""))
        }
        CentralManager.showExportDOCXDialog = 0
    }
}
