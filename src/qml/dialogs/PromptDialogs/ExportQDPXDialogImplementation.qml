import QtQuick 2.15
import QtQuick.Dialogs 1.3
import QtQuick.Layouts 1.15
import Qt.labs.settings 1.0
import "../../Components"
import "../../Utils.js" as Utils
import ".."

// Writes the open project as an archive for other programs.
DialogPanel {
    id: root

    property bool exporting: false
    property bool exported: false
    property string message

    heading: qsTr("Export as REFI-QDA")
    implicitWidth: Units.dp(600)

    Keys.onEscapePressed: {
        if (!exporting)
            dialogBase.close()
    }

    function __export(path) {
        exported = appHelper.exportQDPX(path, _strict.checked)
        exporting = false
        if (exported)
            message = Utils.filled(qsTr("Exported successfully as %1"), appHelper.withArchiveSuffix(path))
        else
            message = appHelper.exchangeWasCancelled() ? qsTr("The export was cancelled.")
                                                       : qsTr("An error occurred while exporting QDPX structure.")
    }

    Settings { property alias exchangeToTheLetter: _strict.checked }

    // The labels get a moment to appear.
    Timer {
        id: _startTimer
        property string path
        interval: 50
        onTriggered: root.__export(path)
    }

    DialogLabel {
        Layout.fillWidth: true
        text: qsTr("REFI-QDA is a format that many programs for qualitative analysis read. The archive will hold the texts, kernos, codings, memos, properties and groups of this project. Emphasis in texts, shortcut keys and chat messages have no place in it.")
        wrapMode: Text.WordWrap
    }
    LabelledSwitch {
        id: _strict
        objectName: "exchangeToTheLetter"
        Layout.fillWidth: true
        Layout.topMargin: ApplicationStyle.default_margin
        enabled: !root.exporting
        text: qsTr("Write texts and positions exactly as the standard says")
    }
    DialogLabel {
        Layout.fillWidth: true
        text: qsTr("Switch this on when another program shows codings on the wrong words.")
        wrapMode: Text.WordWrap
        color: ApplicationStyle.dialog_text_color_alternative
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }
    DialogMessage {
        Layout.topMargin: ApplicationStyle.default_margin
        text: root.exporting ? "" : root.message
        wrapMode: Text.WrapAnywhere
        failed: !root.exported
    }

    WorkProgress {
        Layout.fillWidth: true
        Layout.topMargin: ApplicationStyle.default_margin
        visible: root.exporting
        text: qsTr("Exporting...")
        percent: appHelper.exchangeProgress
        onCancelled: {
            appHelper.cancelExchange()
            krnFile.cancelTextWait()
        }
    }
    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        visible: !root.exporting
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton {
            text: root.exported ? qsTr("Close") : qsTr("Cancel")
            onClicked: root.dialogBase.close()
        }
        StyledButton {
            primary: true
            focus: true
            text: qsTr("Save As...")
            onClicked: _fileDialog.open()
        }
    }

    FileDialog {
        id: _fileDialog
        title: qsTr("Save Project as QDPX archive")
        folder: shortcuts.documents
        selectExisting: false
        defaultSuffix: "qdpx"
        nameFilters: [qsTr("QDPX archives (*.QDPX *qdpx)")]
        onAccepted: {
            root.message = ""
            root.exporting = true
            _startTimer.path = Utils.filePathFromUrl(fileUrl)
            _startTimer.start()
        }
    }
}
