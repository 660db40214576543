import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import "../../Utils.js" as Utils
import ".."
import "../OpenFile"

// Opens a project of the cloud, or makes one.
DialogPanel {
    id: root

    readonly property int modeOpen: 0
    readonly property int modeNew: 1
    readonly property int modeConvert: 2

    property int mode: modeOpen
    property string message
    property bool failed: false

    // What is being opened.
    property QtObject properties: QtObject {
        property var project: null
        property bool passwordNeeded: false
    }
    readonly property var __selected: _own.selected || _shared.selected
    readonly property bool __listing: mode === modeOpen && !properties.passwordNeeded

    heading: mode === modeNew ? qsTr("New Cloud Project")
           : mode === modeConvert ? qsTr("Convert REFI-QDA to Cloud Project") : qsTr("Welcome to Kernova Cloud")
    implicitWidth: Units.dp(820)
    enabled: !_projects.busy

    Component.onCompleted: _projects.update()

    Keys.onEscapePressed: {
        if (mode === modeNew)
            __show(modeOpen)
        else if (mode === modeOpen && CentralManager.hasFileOpen)
            dialogBase.close()
    }

    function __tell(text, isFailure) {
        message = text
        failed = isFailure
    }

    function __show(wantedMode) {
        __tell("", false)
        mode = wantedMode
    }

    // Does a call of the cloud that gives a message; what follows gets its `value`.
    function __call(doing, call, next) {
        __tell(doing, false)
        _projects.perform(function() {
            var answer = call()
            if (answer.status)
                root.__tell("", false)
            else
                root.__tell(answer.message || qsTr("The server could not do this."), true)
            if (answer.status)
                next(JSON.parse(answer.value))
        })
    }

    function open(project) {
        if (!project)
            return
        properties.project = project
        __tell(qsTr("Loading..."), false)
        _projects.perform(function() {
            if (projectMerger.tryProjectPassword(project, "")) {
                root.__openProject(project, "", false)
                return
            }
            // A project that can't be read takes no password either.
            var fault = projectMerger.lastError()
            root.properties.passwordNeeded = fault === ""
            root.__tell(fault || qsTr("%1 is password protected.").arg(project.name), true)
        })
    }

    function tryPassword(password) {
        var project = properties.project
        _projects.perform(function() {
            if (projectMerger.tryProjectPassword(project, password))
                root.__openProject(project, password, false)
            else
                _passwordPanel.retry(qsTr("Incorrect password"))
        })
    }

    function create() {
        var title = _new.title
        if (title === "" || !_new.passwordsMatch) {
            __tell(title === "" ? qsTr("Please provide a project title!")
                                : qsTr("Please repeat password exactly!"), true)
            return
        }
        __call(qsTr("Loading..."), function() { return appHelper.createNewProject(title) }, function(made) {
            root.__openProject(made.project, _new.password, true)
        })
    }

    function __openProject(project, password, isNew) {
        if (!CentralManager.connected) {
            __tell(qsTr("Unable to connect to server. Please try again later..."), true)
            return
        }
        if (CentralManager.openProject(project, password, isNew, !_new.structured, false))
            dialogBase.close()
        else
            __tell(krnFile.getLastOpenError(), true)
    }

    CloudProjects {
        id: _projects
        onErrorChanged: root.__tell(error, true)
        onListed: (own.length > 0 ? _own : _shared).takeFocus()
    }

    CloudFileDialogs {
        id: _dialogs
        onArchiveChosen: {
            _import.archive = ""
            _import.archive = Utils.filePathFromUrl(file)
            root.__show(root.modeConvert)
        }
        onUploadChosen: root.__call(qsTr("Uploading..."), function() {
            return appHelper.uploadProject(Utils.filePathFromUrl(file))
        }, function() { _projects.updateProjectsModel() })
        onRemovalConfirmed: root.__call(qsTr("Deleting..."), function() {
            return appHelper.removeProject(project.project_uuid)
        }, function() { _projects.updateProjectsModel() })
        onDownloadChosen: {
            root.__tell(qsTr("Downloading..."), false)
            _projects.perform(function() {
                var done = appHelper.downloadProject(project.project_uuid, file)
                root.__tell(done ? qsTr("The project was downloaded.")
                                 : qsTr("An error occurred while downloading the project."), !done)
            })
        }
    }

    headerItems: SignOutButton {}

    PasswordPanel {
        id: _passwordPanel
        Layout.fillWidth: true
        visible: root.properties.passwordNeeded
        path: root.properties.project ? root.properties.project.name : ""
        onAccepted: root.tryPassword(password)
        onCancelled: {
            root.properties.passwordNeeded = false
            root.__tell("", false)
        }
    }

    RowLayout {
        visible: root.__listing
        spacing: ApplicationStyle.default_dialog_margin

        CloudProjectsList {
            id: _own
            objectName: "ownProjects"
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            Layout.preferredHeight: Units.dp(270)
            title: qsTr("Projects in the Cloud:")
            emptyText: _projects.busy ? "" : qsTr("No projects found in the Cloud")
            projects: _projects.own
            own: true
            onChosen: _shared.clearSelection()
            onActivated: root.open(project)
            onDownloadRequested: _dialogs.askForDownload(project)
            onRemoveRequested: _dialogs.askForRemoval(project)
        }
        CloudProjectsList {
            id: _shared
            objectName: "sharedProjects"
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            Layout.preferredHeight: Units.dp(270)
            title: qsTr("Shared with me:")
            emptyText: _projects.busy ? "" : qsTr("No shared projects")
            projects: _projects.shared
            onChosen: _own.clearSelection()
            onActivated: root.open(project)
        }
    }

    CloudListButtons {
        visible: root.__listing
        failed: _projects.error !== ""
        selected: root.__selected
        onRefreshRequested: _projects.update()
        onOpenRequested: root.open(root.__selected)
    }

    CloudNewProject {
        id: _new
        Layout.fillWidth: true
        visible: root.mode === root.modeNew
        onAccepted: root.create()
    }
    QDPXImportPanel {
        id: _import
        Layout.fillWidth: true
        visible: root.mode === root.modeConvert
        cloud: true
        author: CentralManager.currentAuthor
        onFinished: {
            root.__show(root.modeOpen)
            root.__openProject(project, password, false)
        }
        onCancelled: {
            root.__show(root.modeOpen)
            if (imported)
                _projects.update()
        }
    }

    DialogMessage {
        text: _projects.slow
              ? qsTr("This takes longer than usual. Your projects may be moving to another server just now.")
              : root.message
        failed: root.failed && !_projects.slow
    }

    CloudOpenButtons {
        Layout.topMargin: ApplicationStyle.default_margin
        visible: !root.properties.passwordNeeded && root.mode !== root.modeConvert
        creating: root.mode === root.modeNew
        onCancelled: root.dialogBase.close()
        onBackRequested: root.__show(root.modeOpen)
        onUploadRequested: _dialogs.askForUpload()
        onNewRequested: root.mode === root.modeNew ? root.create() : root.__show(root.modeNew)
    }
}
