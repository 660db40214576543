import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import "../../Utils.js" as Utils
import ".."
import "../OpenFile"

// Brings several projects into a new one, and opens it.
DialogPanel {
    id: root

    property var master: null
    property var projects: []
    property bool finishing: false
    property string message
    // What waits for its password, and what is done with it then.
    property var __locked: null
    property var __unlock: null
    readonly property bool __choosing: !finishing && !__locked && !_choice.asking

    heading: qsTr("Merge Projects")
    implicitWidth: Units.dp(640)

    Component.onCompleted: {
        projectMerger.clearMerger()
        if (CentralManager.reopen)
            __addOrChangeMasterProject(CentralManager.reopen.project, CentralManager.reopen.password)
    }

    // What had the focus in another step is hidden now.
    on__ChoosingChanged: {
        if (__choosing)
            Qt.callLater(_chosen.takeFocus)
    }

    Keys.onEscapePressed: {
        if (!projectMerger.merging)
            __cancel()
    }

    function __cancel() {
        projectMerger.clearMerger()
        dialogBase.close()
    }

    function __nameOf(project) {
        return CentralManager.cloud ? project.name : Utils.getFileName(project.name, false)
    }

    function __isSame(one, other) {
        return CentralManager.cloud ? one.project_uuid === other.project_uuid : one.name === other.name
    }

    function __isListed(project) {
        return projects.some(function(other) { return root.__isSame(project, other) })
    }

    function __refuse(pattern, project) {
        message = Utils.filled(pattern, __nameOf(project))
    }

    // Takes the project by `take` when it can take part and its password is known; otherwise says why not.
    function __take(project, password, isMaster, take) {
        message = ""
        if (!projectMerger.tryProjectSingleQuestion(project, isMaster)) {
            message = projectMerger.lastError()
                   || Utils.filled(qsTr("%1 cannot be added because question type is different."), __nameOf(project))
        } else if (!projectMerger.tryProjectPassword(project, password)) {
            message = projectMerger.lastError() || qsTr("Password required.")
            if (projectMerger.lastError() === "")
                __askForPassword(project, function(typed) { root.__take(project, typed, isMaster, take) }, password)
        } else {
            __locked = null
            take(password)
        }
    }

    function __askForPassword(project, then, tried) {
        __unlock = then
        __locked = project
        if (tried !== "")
            _passwordPanel.retry(qsTr("Incorrect password"))
    }

    function __addOrChangeMasterProject(project, password) {
        if (master && __isSame(master, project))
            __refuse(qsTr("%1 is already present as Master."), project)
        else if (__isListed(project))
            __refuse(qsTr("%1 is already on the list to merge. You need to remove it first to add as Master."), project)
        else
            __take(project, password, true, function(proven) {
                if (projectMerger.setMaster(project, proven))
                    root.master = project
                else
                    root.message = projectMerger.lastError()
            })
    }

    function __addProjectToMerge(project) {
        if (master && __isSame(master, project))
            __refuse(qsTr("%1 is already present as Master."), project)
        else if (__isListed(project))
            __refuse(qsTr("%1 is already on the list to merge."), project)
        else
            __take(project, "", false, function(proven) {
                if (projectMerger.addProject(project, proven))
                    root.projects = root.projects.concat([project])
                else
                    root.message = projectMerger.lastError()
            })
    }

    function __remove(project) {
        message = ""
        projectMerger.removeProject(project)
        projects = projects.filter(function(other) { return !root.__isSame(project, other) })
    }

    // The texts of refusals that only one kind of storage has.
    function __startMerge() {
        message = CentralManager.cloud && _finish.title === "" ? qsTr("Merged project title is required!")
                : !CentralManager.cloud && _finish.author === "" ? qsTr("Author's name is required!")
                : !_finish.passwordsMatch ? qsTr("Please repeat password exactly!") : ""
        if (message !== "")
            return
        if (CentralManager.cloud)
            __merge({ name: _finish.title, project_uuid: "" })
        else
            _fileDialog.open()
    }

    function __merge(proj) {
        if (projectMerger.exists(proj)) {
            message = CentralManager.cloud
                    ? qsTr("Project with this title already exists! Please rename the merge result.")
                    : Utils.filled(qsTr("%1 already exists! Please choose another name for the merge result."),
                                   Utils.getFileName(proj.name))
            return
        }
        message = ""
        _mergeTimer.proj = proj
        _mergeTimer.start()
    }

    function __mergeNow(proj) {
        var password = _finish.password
        if (!projectMerger.merge(proj, password)) {
            message = projectMerger.wasCancelled() ? qsTr("The merge was cancelled.")
                    : projectMerger.lastError() || qsTr("The projects could not be merged.")
            return
        }
        var result = projectMerger.resultProject()
        projectMerger.clearMerger()
        if (!CentralManager.cloud)
            CentralManager.currentAuthor = _finish.author
        CentralManager.switchingProject = true
        var opened = CentralManager.openProject(result, password, false, true, false)
        CentralManager.switchingProject = false
        if (opened && !CentralManager.cloud)
            _recent.update(result.name, "")
        if (!opened)
            CentralManager.showAlert(heading, krnFile.getLastOpenError())
        dialogBase.close()
    }

    // The labels get a moment to appear.
    Timer {
        id: _mergeTimer
        property var proj
        interval: 50
        onTriggered: root.__mergeNow(proj)
    }

    RecentFiles { id: _recent }

    PasswordPanel {
        id: _passwordPanel
        Layout.fillWidth: true
        visible: root.__locked !== null
        path: root.__locked ? root.__locked.name : ""
        onAccepted: root.__unlock(password)
        onCancelled: {
            root.__locked = null
            root.message = ""
        }
    }
    MergeChoice {
        id: _choice
        Layout.fillWidth: true
        onFailed: root.message = message
    }
    MergeProjectsChosen {
        id: _chosen
        Layout.fillWidth: true
        visible: root.__choosing
        master: root.master
        projects: root.projects
        nameOf: root.__nameOf
        onMasterRequested: _choice.ask(qsTr("Set Master Project"), function(project) {
            root.__addOrChangeMasterProject(project, "")
        })
        onAddRequested: _choice.ask(qsTr("Add Project"), root.__addProjectToMerge)
        onRemoveRequested: root.__remove(project)
    }
    MergeFinish {
        id: _finish
        Layout.fillWidth: true
        visible: root.finishing
        enabled: !projectMerger.merging
        onAccepted: root.__startMerge()
    }

    DialogMessage { text: projectMerger.merging ? "" : root.message }
    WorkProgress {
        Layout.fillWidth: true
        visible: projectMerger.merging
        text: qsTr("Merging...")
        percent: projectMerger.progress
        onCancelled: projectMerger.cancelMerge()
    }
    MergeButtons {
        Layout.topMargin: ApplicationStyle.default_margin
        visible: (root.__choosing || root.finishing) && !projectMerger.merging
        finishing: root.finishing
        ready: !!root.master && root.projects.length > 0
        onCancelled: root.__cancel()
        onStepRequested: {
            root.message = ""
            root.finishing = !root.finishing
        }
        onMergeRequested: root.__startMerge()
    }

    ProjectFileDialog {
        id: _fileDialog
        creating: true
        onAccepted: root.__merge({ name: Utils.filePathFromUrl(fileUrl), project_uuid: "" })
    }
}
