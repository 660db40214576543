import QtQuick 2.15
import QtQuick.Dialogs 1.3
import "../../Components"
import "../../Utils.js" as Utils

// Asks for a file, and writes the open project or a part of it there.
FileDialog {
    id: root

    readonly property int saveAs: 1
    readonly property int structureOnly: 2
    readonly property int sourcesOnly: 3
    readonly property int download: 5
    property int mode: saveAs
    readonly property var __failures: ({
        1: qsTr("An error occurred while making file copy."),
        2: qsTr("An error occurred while exporting KRN structure."),
        3: qsTr("An error occurred while exporting KRN file with sources."),
        5: qsTr("An error occurred while downloading the project.")
    })

    title: mode === structureOnly ? qsTr("Save .krn file with structure.") : qsTr("Save as...")
    folder: shortcuts.documents
    selectExisting: false
    defaultSuffix: "krn"
    nameFilters: [qsTr("KRN Files (*.KRN *.krn)")]

    function ask(wantedMode) {
        mode = wantedMode
        open()
    }

    // Gives success and, where it is known, why it failed.
    function __write() {
        var path = Utils.filePathFromUrl(fileUrl)
        if (mode === saveAs) {
            CentralManager.switchingProject = true
            var saved = krnFile.saveAs(path)
            CentralManager.switchingProject = false
            return [saved, saved ? "" : krnFile.getLastOpenError()]
        }
        if (mode === structureOnly)
            return krnFile.exportKRNStructure(path)
        if (mode === sourcesOnly)
            return krnFile.exportKRNSources(path)
        return [appHelper.downloadProject(CentralManager.currentProject.project_uuid, fileUrl), ""]
    }

    onAccepted: {
        var result = __write()
        if (result[0])
            return
        CentralManager.showStatusMessage(__failures[mode], 5000)
        CentralManager.showAlert(title, __failures[mode] + (result[1] ? "\n\n" + result[1] : ""))
    }
}
