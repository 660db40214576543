import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/dialogs"
import "qrc:/qml/dialogs/OpenFile"

// The chains of dialogs, the recent projects, and the way into a project.
Item {
    id: test
    width: 900
    height: 700

    DialogChain {
        id: chain
        anchors.fill: parent
        DialogEntry {
            wanted: testCase.first
            onClosed: testCase.first = false
            Component { DialogPanel { heading: "First" } }
        }
        DialogEntry {
            wanted: testCase.second
            onClosed: testCase.second = false
            Component { DialogPanel { heading: "Second" } }
        }
    }

    DialogBase {
        id: openBase
        implementation: OpenFileDialogImplementation {}
    }

    RecentFiles { id: recent }

    TestCase {
        id: testCase
        name: "Dialogs"
        when: windowShown

        property bool first: false
        property bool second: false

        SignalSpy { id: alerts; target: CentralManager; signalName: "showAlert" }

        readonly property Item dialog: openBase.content

        function field(name) {
            return findChild(dialog, name)
        }

        function init() {
            recent.recentFiles = ""
            dialog.mode = dialog.modeOpen
            dialog.message = ""
            dialog.recentFiles = ""
            dialog.properties.passwordNeeded = false
            field("author").text = " Ana "
            projectMerger.password = ""
            krnFile.openResult = true
            krnFile.backupResult = true
            krnFile.calls = []
            alerts.clear()
        }

        function test_anEarlierDialogHidesALaterOne() {
            var before = CentralManager.overlayCount
            testCase.second = true
            compare(chain.item.content.heading, "Second")
            testCase.first = true
            compare(chain.item.content.heading, "First")
            compare(CentralManager.overlayCount, before + 1)
            chain.item.close()
            tryCompare(testCase, "first", false)
            compare(chain.item.content.heading, "Second")
            chain.item.close()
            tryCompare(testCase, "second", false)
            compare(chain.item, null)
            compare(CentralManager.overlayCount, before)
        }

        function paths() {
            return recent.entries().map(function(entry) { return entry.path })
        }

        function test_recentProjects() {
            compare(paths(), [])
            for (var i = 1; i <= 11; ++i)
                recent.update("/p/" + i + ".krn", "")
            compare(paths(), [11, 10, 9, 8, 7, 6, 5, 4, 3, 2].map(function(n) { return "/p/" + n + ".krn" }))
            recent.update("/p/5.krn", "2024-01-01T00:00:00.000Z")
            compare(paths()[0], "/p/5.krn")
            compare(paths().length, 10)
            compare(recent.entry("/p/5.krn").name, "5")
            recent.remove("/p/5.krn")
            compare(paths().length, 9)
            compare(recent.recentFilesModel.count, 9)
        }

        function test_backup_data() {
            var hour = 60 * 60 * 1000
            return [
                { tag: "never", age: -1, works: true, made: true, alert: false },
                { tag: "today", age: hour, works: true, made: false, alert: false },
                { tag: "last week", age: 7 * 24 * hour, works: true, made: true, alert: false },
                { tag: "fails", age: 7 * 24 * hour, works: false, made: true, alert: true }
            ]
        }
        function test_backup(data) {
            var date = data.age < 0 ? "" : new Date(Date.now() - data.age).toISOString()
            dialog.recentFiles = JSON.stringify([{ name: "a", path: "/p/a.krn", backup: date }])
            krnFile.backupResult = data.works
            dialog.open("/p/a.krn")
            tryCompare(dialog, "isOpening", false)
            compare(krnFile.calls.some(function(call) { return call.name === "makeBackup" }), data.made)
            compare(alerts.count, data.alert ? 1 : 0)
            var kept = JSON.parse(dialog.recentFiles)[0].backup
            compare(kept === date, !data.made || !data.works)
        }

        function test_validation() {
            field("author").text = "  "
            dialog.open("/p/a.krn")
            compare(dialog.message, "Author's name is required!")
            compare(dialog.isOpening, false)
        }

        function test_openingTrimsTheAuthorAndNamesTheProject() {
            dialog.mode = dialog.modeNew
            dialog.open("/p/new.krn")
            compare(dialog.message, "Loading...")
            tryCompare(dialog, "isOpening", false)
            compare(CentralManager.currentAuthor, "Ana")
            var call = krnFile.calls.filter(function(call) { return call.name === "openProject" })[0]
            compare(call.arguments, ["/p/new.krn", true, "", true, false])
            compare(CentralManager.currentProject.name, "/p/new.krn")
        }

        function test_aProtectedProjectAsksForItsPassword() {
            projectMerger.password = "secret"
            dialog.open("/p/a.krn")
            compare(dialog.message, "a.krn is password protected.")
            compare(dialog.properties.passwordNeeded, true)
            dialog.tryPassword("wrong")
            compare(dialog.isOpening, false)
            dialog.tryPassword("secret")
            tryCompare(dialog, "isOpening", false)
            compare(krnFile.calls[krnFile.calls.length - 2].arguments[2], "secret")
        }

        function test_aFileThatCannotBeReadAsksForNoPassword() {
            projectMerger.error = "It is damaged."
            dialog.open("/p/a.krn")
            projectMerger.error = ""
            compare(dialog.message, "It is damaged.")
            compare(dialog.properties.passwordNeeded, false)
            compare(dialog.isOpening, false)
        }

        function test_aFailureIsShown() {
            krnFile.openResult = false
            dialog.open("/p/a.krn")
            tryCompare(dialog, "isOpening", false)
            compare(dialog.message, "Unable to open project.")
            compare(JSON.parse(dialog.recentFiles || "[]").length, 0)
        }
    }
}
