import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/dialogs"
import "qrc:/qml/dialogs/PromptDialogs"

// What the cloud's dialogs make of its answers.
Item {
    id: test
    width: 980
    height: 680

    DialogBase {
        id: base
        implementation: CloudOpenFileDialogImplementation {}
    }
    DialogBase {
        id: copyBase
        implementation: NewProjectDialogImplementation {}
    }

    TestCase {
        name: "CloudDialogs"
        when: windowShown

        readonly property Item dialog: base.content

        function init() {
            appHelper.calls = []
            appHelper.answers = {}
            krnFile.calls = []
            CentralManager.connected = true
            projectMerger.password = ""
            tryCompare(dialog, "enabled", true)
            dialog.mode = dialog.modeOpen
        }

        function ids(name) {
            return findChild(dialog, name).projects.map(function(entry) { return entry.project_uuid })
        }

        function refresh() {
            (findButton(dialog, "Refresh") || findButton(dialog, "Try again")).clicked()
            tryVerify(function() { return appHelper.calls.indexOf("projectsShared") >= 0 })
            tryCompare(dialog, "enabled", true)
        }

        function findButton(item, text) {
            if (item.text === text && item.clicked !== undefined && item.visible)
                return item
            for (var i = 0; i < item.children.length; ++i) {
                var found = findButton(item.children[i], text)
                if (found)
                    return found
            }
            return null
        }

        function test_listsHoldWhatCanBeOpened() {
            appHelper.answers = {
                projects: { status: true, value: { projects: [{ name: "a", project_uuid: "1" }, { name: "b" }, null] } },
                projectsShared: { status: true, value: { shares: [{ name: "c", project_uuid: "2" }] } }
            }
            refresh()
            compare(ids("ownProjects"), ["1"])
            compare(ids("sharedProjects"), ["2"])
            // A list that can't be had takes nothing away.
            appHelper.answers = { projects: { status: false, message: "No way" } }
            appHelper.calls = []
            refresh()
            compare(dialog.message, "No way")
            compare(ids("ownProjects"), ["1"])
            verify(findButton(dialog, "Try again"))
        }

        function test_aNewProjectNeedsATitle() {
            dialog.mode = dialog.modeNew
            dialog.create()
            compare(dialog.message, "Please provide a project title!")
            compare(appHelper.calls.length, 0)
            var title = findChild(dialog, "projectTitle")
            title.text = " Study "
            appHelper.answers = { createNewProject: { status: false, message: "No room left" } }
            dialog.create()
            tryCompare(dialog, "message", "No room left")
            compare(krnFile.calls.length, 0)
            appHelper.answers = { createNewProject: { status: true, value: { project: { name: "Study", project_uuid: "3" } } } }
            krnFile.openResult = false
            dialog.create()
            tryCompare(dialog, "message", "Unable to open project.")
            compare(krnFile.calls[0].arguments, ["Study", true, "", true, false])
            krnFile.openResult = true
        }

        function test_withoutALinkNothingOpens() {
            CentralManager.connected = false
            dialog.open({ name: "a", project_uuid: "1" })
            tryCompare(dialog, "message", "Unable to connect to server. Please try again later...")
            compare(krnFile.calls.length, 0)
        }

        function test_aCopyTellsWhyItFails_data() {
            return [{ kind: 1, call: "saveAsRemote" }, { kind: 2, call: "exportKRNSources" },
                    { kind: 3, call: "exportKRNStructure" }]
        }

        function test_aCopyTellsWhyItFails(data) {
            var copy = copyBase.content
            copy.kind = data.kind
            findChild(copy, "saveAsName").text = "Other"
            krnFile.copyResult = [false, "No room left"]
            copy.save()
            tryVerify(function() { return krnFile.calls.length === 1 })
            compare(krnFile.calls[0], { name: data.call, arguments: ["Other"] })
            verify(copyBase.visible)
            verify(!CentralManager.switchingProject)
        }
    }
}
