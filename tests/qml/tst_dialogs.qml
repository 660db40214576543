import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/dialogs"

// The chain of dialogs, the keyboard in them, the backup on the way into a project, and what is kept of a
// kerno's properties.
Item {
    id: test
    width: 900
    height: 700

    property Component implementation
    property bool first: false
    property bool second: false

    DialogChain {
        id: chain
        anchors.fill: parent
        DialogEntry {
            wanted: test.first
            onClosed: test.first = false
            Component { DialogPanel { heading: "First" } }
        }
        DialogEntry {
            wanted: test.second
            onClosed: test.second = false
            Component { DialogPanel { heading: "Second" } }
        }
    }

    StyledTextField { id: before }

    Loader {
        id: loader
        anchors.fill: parent
        sourceComponent: test.implementation ? base : null
    }

    Loader {
        id: above
        anchors.fill: parent
        active: false
        sourceComponent: DialogBase {
            implementation: DialogPanel { StyledTextField { objectName: "upper"; focus: true } }
        }
    }

    Component { id: base; DialogBase { implementation: test.implementation } }
    Component {
        id: fields
        DialogPanel {
            StyledTextField { objectName: "first"; focus: true }
            StyledTextField { objectName: "second" }
            StyledButton { objectName: "third"; text: "OK" }
        }
    }
    Component {
        id: longList
        DialogPanel {
            ListView {
                objectName: "list"
                Layout.fillWidth: true
                Layout.preferredHeight: Units.dp(100)
                model: 40
                delegate: StyledTextField {}
            }
        }
    }
    Component { id: opening; OpenFileDialogImplementation {} }
    Component { id: properties; KernoPreferencesDialogImplementation {} }

    SignalSpy { id: alerts; target: CentralManager; signalName: "showAlert" }

    TestCase {
        name: "Dialogs"
        when: windowShown

        function initTestCase() {
            verify(study.open())
        }

        function cleanup() {
            test.implementation = null
        }

        function show(component) {
            test.implementation = component
            tryVerify(function() { return loader.item && loader.item.content })
            return loader.item.content
        }

        function test_anEarlierDialogHidesALaterOne() {
            var before = CentralManager.overlayCount
            test.second = true
            compare(chain.item.content.heading, "Second")
            test.first = true
            compare(chain.item.content.heading, "First")
            compare(CentralManager.overlayCount, before + 1)
            chain.item.close()
            tryCompare(test, "first", false)
            compare(chain.item.content.heading, "Second")
            chain.item.close()
            tryCompare(test, "second", false)
            compare([chain.item, CentralManager.overlayCount], [null, before])
        }

        function hasFocus(name) {
            var item = findChild(loader.item, name) || findChild(above.item, name)
            return !!item && item.activeFocus
        }

        function test_theTabGoesRound() {
            before.forceActiveFocus()
            show(fields)
            tryVerify(function() { return loader.item.opacity === 1 && hasFocus("first") })
            var goTo = function(name, key, modifiers) {
                keyClick(key, modifiers || Qt.NoModifier)
                tryVerify(function() { return hasFocus(name) }, 1000, name)
            }
            goTo("second", Qt.Key_Tab)
            goTo("third", Qt.Key_Tab)
            goTo("first", Qt.Key_Tab)
            goTo("third", Qt.Key_Backtab, Qt.ShiftModifier)
            // A dialog above keeps it, and gives it back; so does the lower one.
            above.active = true
            tryVerify(function() { return above.item.opacity === 1 && hasFocus("upper") })
            keyClick(Qt.Key_Tab)
            tryVerify(function() { return hasFocus("upper") })
            above.item.close()
            tryVerify(function() { return hasFocus("third") })
            above.active = false
            loader.item.close()
            tryCompare(before, "activeFocus", true)
        }

        // A list makes no more rows than are in sight.
        function test_theTabScrollsALongList() {
            show(longList)
            var list = findChild(loader.item, "list")
            tryVerify(function() { return loader.item.opacity === 1 && list.height > 0 })
            var reached = function(row) {
                var item = list.itemAtIndex(row)
                var top = item && item.activeFocus ? item.mapToItem(list, 0, 0).y : -1
                return top >= 0 && top + item.height <= list.height
            }
            list.itemAtIndex(0).forceActiveFocus()
            for (var row = 1; row < 40; ++row) {
                keyClick(Qt.Key_Tab)
                tryVerify(function() { return reached(row) }, 1000, "row " + row)
            }
        }

        function test_backup_data() {
            var hour = 60 * 60 * 1000
            return [
                { tag: "never", age: -1, works: true, made: true },
                { tag: "today", age: hour, works: true, made: false },
                { tag: "last week", age: 7 * 24 * hour, works: true, made: true },
                { tag: "fails", age: 7 * 24 * hour, works: false, made: false }
            ]
        }
        function test_backup(data) {
            var backup = study.path + ".bak"
            var places = [backup, backup + ".tmp"]
            places.forEach(function(place) {
                study.clear(place)
                if (!data.works)
                    study.block(place)
            })
            alerts.clear()
            var dialog = show(opening)
            var date = data.age < 0 ? "" : new Date(Date.now() - data.age).toISOString()
            dialog.recentFiles = JSON.stringify([{ name: "study", path: study.path, backup: date }])
            findChild(dialog, "author").text = "  "
            dialog.open(study.path)
            compare([dialog.message, dialog.isOpening], ["Author's name is required!", false])
            findChild(dialog, "author").text = " Ana "
            dialog.open(study.path)
            tryCompare(dialog, "isOpening", false)
            compare(krnFile.isOpened, true)
            compare(CentralManager.currentAuthor, "Ana")
            compare(study.exists(backup), data.made)
            compare(alerts.count, data.works ? 0 : 1)
            compare(JSON.parse(dialog.recentFiles)[0].backup === date, !data.made)
            places.forEach(function(place) { study.clear(place) })
        }

        function test_propertiesAreSavedTrimmed() {
            study.setKernos([[1, -1, 5, 5]])
            CentralManager.showPreferencesDialogForKerno = 1
            var dialog = show(properties)
            findChild(dialog, "kernoTitle").text = "  Listening "
            findChild(dialog, "kernoDescription").text = " to people\n"
            dialog.kernoColor = "#ff0000"
            dialog.save()
            var saved = krnFile.kerno(1)
            compare([saved.title, saved.description, String(saved.color)], ["Listening", "to people", "#ff0000"])
            compare(undoManager.count, 1)
            CentralManager.showPreferencesDialogForKerno = -1
        }
    }
}
