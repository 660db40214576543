import QtQuick 2.15
import QtQuick.Dialogs 1.3
import QtQuick.Layouts 1.15
import Kernova 1.4
import "../../Components"
import "../../Utils.js" as Utils
import ".."

// Makes a source of each row of a table; a person says what each column holds.
DialogPanel {
    id: root

    property string file
    property string message

    heading: qsTr("Import Sources From CSV")
    implicitWidth: Units.dp(640)

    Keys.onEscapePressed: {
        if (_model.importing)
            _model.cancelImport()
        else
            dialogBase.close()
    }

    function importNow() {
        if (_model.canImport(true) && undoManager.importSourcesFromCSV(_model))
            dialogBase.close()
    }

    TransposedCSVImportModel { id: _model }

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("File:") }
        DialogLabel {
            Layout.fillWidth: true
            text: root.file
            elide: Text.ElideMiddle
            color: ApplicationStyle.dialog_text_color_alternative
        }
        StyledButton {
            enabled: !_model.importing
            text: qsTr("Select File")
            focus: true
            onClicked: _fileDialog.open()
        }
    }

    FieldFrame {
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(300)
        enabled: !_model.importing

        DialogLabel {
            anchors.centerIn: parent
            visible: _columns.count === 0
            text: qsTr("No file selected.")
            color: ApplicationStyle.dialog_text_color_alternative
            opacity: 0.7
        }

        StyledScrollView {
            anchors { fill: parent; margins: 2 }

            ListView {
                id: _columns
                model: _model
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                // All rows stand from the beginning: the Tab goes through rows in the order of their making.
                cacheBuffer: count * Units.dp(40)
                delegate: CSVColumnRow {
                    width: ListView.view.width
                    name: columnName
                    types: _model.columnTypeDropDownModel()
                    typeIndex: _model.columnTypeDropDownIndex(columnType)
                    onTypeChosen: _model.setSectionType(index, type)
                }
            }
        }
    }

    DialogLabel {
        Layout.fillWidth: true
        text: root.message !== "" ? root.message : qsTr("Sources to import: %1").arg(_model.sourcesCount)
        wrapMode: Text.Wrap
        color: root.message !== "" ? ApplicationStyle.error_text_color : ApplicationStyle.dialog_text_color
    }

    WorkProgress {
        Layout.fillWidth: true
        Layout.topMargin: ApplicationStyle.default_margin
        visible: _model.importing
        text: qsTr("Importing...")
        percent: _model.percent
        onCancelled: _model.cancelImport()
    }
    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        visible: !_model.importing
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.dialogBase.close() }
        StyledButton {
            primary: true
            enabled: CentralManager.canMutate && _model.sourcesCount > 0
            text: qsTr("Import")
            onClicked: root.importNow()
        }
    }

    FileDialog {
        id: _fileDialog
        title: qsTr("Import Sources From CSV")
        folder: shortcuts.documents
        nameFilters: [qsTr("CSV files (*.csv)")]
        onAccepted: {
            // A dialog that is left by keys in the wrong moment gives none.
            if (fileUrl.toString() === "")
                return
            root.file = Utils.getFileName(Utils.filePathFromUrl(fileUrl))
            root.message = _model.openFile(fileUrl)
                    ? "" : qsTr("The selected file did not contain any relevant data.")
        }
    }
}
