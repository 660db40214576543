import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "../Utils.js" as Utils
import "OpenFile"

// Opens a project file of this computer, or makes one.
DialogPanel {
    id: root

    readonly property int modeOpen: 0
    readonly property int modeNew: 1

    property int mode: modeOpen
    property bool isOpening: false
    property string message
    property alias recentFiles: _recent.recentFiles
    readonly property alias recentFilesModel: _recent.recentFilesModel
    readonly property alias __maxRecentFiles: _recent.__maxRecentFiles

    // What is being opened.
    property QtObject properties: QtObject {
        property var project: null
        property bool passwordNeeded: false
        property bool qdpxImport: false
        property string qdpx
        property bool showFileDialog: false
    }

    heading: mode === modeNew ? qsTr("New Project") : qsTr("Welcome to Kernova")
    implicitWidth: Units.dp(720)
    enabled: !isOpening
    readonly property bool __choosing: !properties.passwordNeeded && !properties.qdpxImport

    Component.onCompleted: {
        _author.text = _recent.lastAuthor
        _author.selectAll()
    }

    Keys.onEscapePressed: {
        if (CentralManager.hasFileOpen && __choosing)
            dialogBase.close()
    }

    // What Return does: the step that the marked button stands for.
    function __carryOn() {
        if (mode === modeNew)
            chooseFile()
        else
            open(_recentList.selectedPath)
    }

    function validate() {
        _author.text = _author.text.trim()
        message = _author.text === "" ? qsTr("Author's name is required!")
                : mode === modeNew && !_newFields.passwordsMatch ? qsTr("Please repeat password exactly!") : ""
        return message === ""
    }

    function chooseFile() {
        if (validate())
            properties.showFileDialog = true
    }

    // The button of the mode that is shown asks for a file, that of the other changes the mode.
    function __choose(wantedMode) {
        message = ""
        if (mode === wantedMode)
            chooseFile()
        else
            mode = wantedMode
    }

    // Opens the file, or makes it in new mode.
    function open(path) {
        if (path === "" || !validate())
            return
        if (mode === modeOpen && path.toLowerCase().endsWith(".qdpx")) {
            properties.qdpx = path
            properties.qdpxImport = true
            return
        }
        properties.project = { name: path, project_uuid: "" }
        if (mode === modeOpen && !projectMerger.tryProjectPassword(properties.project, "")) {
            // A project that can't be read takes no password either.
            message = projectMerger.lastError()
            properties.passwordNeeded = message === ""
            if (properties.passwordNeeded)
                message = qsTr("%1 is password protected.").arg(Utils.getFileName(path))
            return
        }
        __startOpening(mode === modeNew ? _newFields.password : "")
    }

    function __leaveImport() {
        properties.qdpxImport = false
        properties.qdpx = ""
    }

    function tryPassword(password) {
        if (projectMerger.tryProjectPassword(properties.project, password))
            __startOpening(password)
        else
            _passwordPanel.retry(qsTr("Incorrect password"))
    }

    function __startOpening(password) {
        message = qsTr("Loading...")
        isOpening = true
        _openTimer.password = password
        _openTimer.start()
    }

    function __openNow(password) {
        var project = properties.project
        _recent.lastAuthor = _author.text
        CentralManager.currentAuthor = _author.text
        var opened = CentralManager.openProject(project, password, mode === modeNew, !_newFields.structured, false)
        isOpening = false
        if (!opened) {
            message = krnFile.getLastOpenError()
            return
        }
        message = ""
        appHelper.clearUserInvokedFile()
        _recent.update(project.name, __makeBackupIfNeeded(project.name))
        dialogBase.close()
    }

    // The date of the project's last backup, after making one where that is due.
    function __makeBackupIfNeeded(path) {
        var date = _recent.makeBackupIfNeeded(path)
        if (date !== undefined)
            return date
        CentralManager.showAlert(qsTr("Failed to create backup"),
            qsTr("The project could not be backed up. Please make regular backups of your project file."))
        var known = _recent.entry(path)
        return known && known.backup ? known.backup : ""
    }

    // Opening blocks, so "Loading..." gets a moment to appear.
    Timer {
        id: _openTimer
        property string password
        interval: 50
        onTriggered: root.__openNow(password)
    }

    RecentFiles { id: _recent }

    headerItems: SignOutButton {}

    PasswordPanel {
        id: _passwordPanel
        Layout.fillWidth: true
        visible: root.properties.passwordNeeded
        path: root.properties.project ? root.properties.project.name : ""
        onAccepted: root.tryPassword(password)
        onCancelled: {
            root.properties.passwordNeeded = false
            root.message = ""
        }
    }

    QDPXImportPanel {
        Layout.fillWidth: true
        visible: root.properties.qdpxImport
        archive: root.properties.qdpx
        author: _author.text
        onFinished: {
            root.__leaveImport()
            root.properties.project = project
            root.__startOpening(password)
        }
        onCancelled: root.__leaveImport()
    }

    ColumnLayout {
        Layout.fillWidth: true
        visible: root.__choosing
        spacing: ApplicationStyle.default_margin

        RecentProjects {
            id: _recentList
            Layout.fillWidth: true
            visible: root.mode === root.modeOpen
            model: _recent.recentFilesModel
            onActivated: root.open(path)
            onRemoveRequested: _recent.remove(path)
        }

        RowLayout {
            spacing: ApplicationStyle.default_dialog_margin

            DialogLabel {
                Layout.preferredWidth: Units.dp(150)
                text: qsTr("Author:")
            }
            DialogTextField {
                id: _author
                objectName: "author"
                Accessible.name: qsTr("Author")
                Layout.fillWidth: true
                focus: true
                onAccepted: root.__carryOn()
            }
        }

        NewProjectFields {
            id: _newFields
            Layout.fillWidth: true
            visible: root.mode === root.modeNew
        }
    }

    DialogMessage {
        text: root.message
        failed: !root.isOpening
    }

    OpenButtons {
        Layout.topMargin: ApplicationStyle.default_margin
        visible: root.__choosing
        creating: root.mode === root.modeNew
        onCancelled: root.dialogBase.close()
        onExistingRequested: root.__choose(root.modeOpen)
        onNewRequested: root.__choose(root.modeNew)
    }

    ProjectFileDialog {
        visible: root.properties.showFileDialog
        creating: root.mode === root.modeNew
        onAccepted: {
            root.properties.showFileDialog = false
            root.open(Utils.filePathFromUrl(fileUrl))
        }
        onRejected: root.properties.showFileDialog = false
    }
}
