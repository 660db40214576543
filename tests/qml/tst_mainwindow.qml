import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"

// The main window as a whole.
TestCase {
    id: test
    name: "MainWindow"
    when: windowShown

    property var root: null
    property var window: null

    function initTestCase() {
        var component = Qt.createComponent("qrc:/qml/main.qml")
        compare(component.status, Component.Ready, component.errorString())
        root = component.createObject(null)
        window = root.mainWindow
        window.showFirstTimeIntro = false
        root.splash.timeoutInterval = 1
        tryCompare(window, "visible", true)
    }

    function cleanupTestCase() {
        root.destroy()
    }

    function test_theWayIn() {
        CentralManager.cloud = false
        CentralManager.showLogin = true
        tryCompare(CentralManager, "overlayCount", 1)
        appHelper.connectToServer(false)
        CentralManager.showLogin = false
        CentralManager.raiseOpenDialog(true)
        tryCompare(CentralManager, "overlayCount", 1)
        CentralManager.openProject({ name: "/p/night.krn", project_uuid: "" }, "", true, true, false)
        compare(CentralManager.showOpenFileDialog, false)
        tryCompare(CentralManager, "overlayCount", 0)
        compare(window.title, "Kernova 2.5.3 - /p/night.krn")
    }

    function test_undoWaitsForDialogs() {
        undoManager.calls = []
        CentralManager.showAboutDialog = true
        tryCompare(CentralManager, "overlayCount", 1)
        keyClickOn(Qt.Key_Z, Qt.ControlModifier)
        compare(undoManager.names(), [])
        CentralManager.showAboutDialog = false
        tryCompare(CentralManager, "overlayCount", 0)
    }

    function keyClickOn(key, modifiers) {
        window.requestActivate()
        qtest_events.keyClick(key, modifiers, -1)
    }

    function test_aLostLinkBlocks() {
        CentralManager.showLogin = false
        krnFile.connected()
        krnFile.disconnected()
        tryCompare(window, "blocked", true)
        krnFile.connected()
        tryCompare(window, "blocked", false)
    }

    function test_theColumnWidensForMemos() {
        var screen = window.mainWindowStack.currentItem
        window.width = 1400
        tryCompare(window, "width", 1400)
        var left = screen.leftColumnWidth
        CentralManager.showMemosPanel = true
        compare(screen.leftColumnWidth, left - CentralManager.memoColumnSize)
        CentralManager.showMemosPanel = false
        compare(screen.leftColumnWidth, left)
    }
}
