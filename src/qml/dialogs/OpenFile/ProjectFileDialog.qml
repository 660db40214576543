import QtQuick 2.15
import QtQuick.Dialogs 1.3

// Asks for the file of a project: one to open, or the name of a new one.
FileDialog {
    property bool creating: false
    readonly property string __projects: qsTr("Kerno Files (*.krn *.KRN)")

    title: creating ? qsTr("Create New Project") : qsTr("Open Existing Project")
    folder: shortcuts.documents
    selectExisting: !creating
    nameFilters: creating ? [__projects] : [__projects, qsTr("REFI-QDA archives (*.QDPX *qdpx)")]
    defaultSuffix: "krn"
}
