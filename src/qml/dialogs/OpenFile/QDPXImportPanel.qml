import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import "../../Utils.js" as Utils
import ".."

// Makes a project of an archive of another program: a file of this computer, or a project of the cloud.
ColumnLayout {
    id: root

    property string archive
    property string author
    property bool cloud: false
    property bool running: false
    property string message
    readonly property bool imported: __project !== null
    property string __target
    property var __project: null
    property var __skipped: []

    // The project is there, and is to be opened.
    signal finished(var project, string password)
    signal cancelled()

    spacing: ApplicationStyle.default_margin

    onArchiveChanged: {
        message = ""
        __project = null
        __skipped = []
        var name = Utils.getFileName(archive, false)
        _title.text = name
        __target = archive === "" || cloud ? "" : __freeName(archive.substring(0, archive.lastIndexOf("/") + 1) + name)
    }

    Keys.onEscapePressed: {
        if (!running)
            cancelled()
    }

    // Nothing is replaced unless a person chooses it.
    function __freeName(base) {
        var path = base + ".krn"
        for (var n = 1; projectMerger.exists({ name: path }); ++n)
            path = base + " (" + n + ").krn"
        return path
    }

    function start() {
        message = cloud && _title.text.trim() === "" ? qsTr("Please provide a project title!")
                : _fields.passwordsMatch ? "" : qsTr("Please repeat password exactly!")
        if (message !== "" || running)
            return
        running = true
        _startTimer.start()
    }

    function __importNow() {
        var wanted = { name: cloud ? _title.text.trim() : __target, project_uuid: "" }
        var answer = appHelper.importQDPX(archive, wanted, author, CentralManager.canvasBaseWidth,
                                          CentralManager.canvasBaseHeight, _fields.password)
        running = false
        if (!answer.status) {
            message = answer.message || qsTr("The import was cancelled.")
            return
        }
        var value = JSON.parse(answer.value)
        __project = cloud ? value.project : wanted
        __skipped = value.skipped
        if (__skipped.length === 0)
            finished(__project, _fields.password)
    }

    // The labels get a moment to appear.
    Timer {
        id: _startTimer
        interval: 50
        onTriggered: root.__importNow()
    }

    DialogLabel {
        visible: !root.cloud
        text: qsTr("Import QDPX files")
        font { pixelSize: Units.dp(20); bold: true }
    }
    DialogLabel {
        Layout.fillWidth: true
        text: qsTr("File: ") + root.archive
        color: ApplicationStyle.dialog_text_color_alternative
        elide: Text.ElideMiddle
    }

    ColumnLayout {
        visible: !root.imported
        enabled: !root.running
        spacing: ApplicationStyle.default_margin

        DialogLabel {
            Layout.fillWidth: true
            text: qsTr("Video, audio, picture and non-text PDF sources are ignored.")
            wrapMode: Text.WordWrap
        }
        RowLayout {
            spacing: ApplicationStyle.default_dialog_margin

            DialogLabel {
                Layout.preferredWidth: Units.dp(150)
                text: root.cloud ? qsTr("Project Title:") : qsTr("New project:")
            }
            DialogTextField {
                id: _title
                objectName: "convertedTitle"
                Layout.fillWidth: true
                visible: root.cloud
                Accessible.name: qsTr("Project Title")
                onAccepted: root.start()
            }
            DialogLabel {
                Layout.fillWidth: true
                visible: !root.cloud
                text: root.__target
                color: ApplicationStyle.dialog_text_color_alternative
                elide: Text.ElideMiddle
            }
            StyledButton {
                visible: !root.cloud
                text: qsTr("Change...")
                onClicked: _fileDialog.open()
            }
        }
        NewProjectFields {
            id: _fields
            Layout.fillWidth: true
            asksForQuestions: false
        }
    }

    SkippedElements {
        Layout.fillWidth: true
        visible: root.imported && root.__skipped.length > 0
        elements: root.__skipped
    }

    DialogMessage { text: root.message }

    WorkProgress {
        Layout.fillWidth: true
        visible: root.running
        text: qsTr("Importing...")
        percent: appHelper.exchangeProgress
        onCancelled: appHelper.cancelExchange()
    }
    RowLayout {
        visible: !root.running
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton {
            visible: !root.imported
            text: qsTr("Cancel")
            onClicked: root.cancelled()
        }
        StyledButton {
            primary: true
            text: root.imported ? qsTr("Open Project") : root.cloud ? qsTr("Convert and Save") : qsTr("Import")
            onClicked: {
                if (root.imported)
                    root.finished(root.__project, _fields.password)
                else
                    root.start()
            }
        }
    }

    ProjectFileDialog {
        id: _fileDialog
        creating: true
        onAccepted: root.__target = Utils.filePathFromUrl(fileUrl)
    }
}
