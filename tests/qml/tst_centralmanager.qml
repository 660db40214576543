import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"

// The shared state: what it derives, and how it follows the project.
TestCase {
    name: "CentralManager"

    SignalSpy { id: locks; target: CentralManager; signalName: "setNewUndoStackLock" }
    SignalSpy { id: unlocks; target: CentralManager; signalName: "removeUndoStackLock" }
    SignalSpy { id: opened; target: krnFile; signalName: "fileOpened" }

    function initTestCase() {
        CentralManager.cloud = false
        verify(study.open())
    }

    function init() {
        CentralManager.switchToDefaultView()
        CentralManager.showMemosPanel = false
        CentralManager.currentMemoId = -1
        locks.clear()
        unlocks.clear()
    }

    function open(sharedCount, createNew) {
        return CentralManager.openProject({ name: study.path, project_uuid: "", shared_count: sharedCount }, "",
                                          createNew, true, false)
    }

    function test_openingReadsPreferences() {
        krnFile.savePreference("HighlightsColumn.Width", 80)
        krnFile.savePreference("Source.FontSize", 17)
        krnFile.savePreference("Report.GenerateOverlapViews", true)
        verify(open(0, false))
        compare([CentralManager.highlightsColumnWidth, CentralManager.sourceFontSize,
                 CentralManager.generateOverlapViews, CentralManager.generateHierarchyViews], [80, 17, true, false])
        compare(CentralManager.canMutate, true)
        CentralManager.highlightsColumnWidth = 55
        CentralManager.sourceFontSize = 13
        krnFile.close()
        compare([CentralManager.reopen, CentralManager.showOpenFileDialog], [undefined, true])
        CentralManager.showOpenFileDialog = false
    }

    function test_reopening_data() {
        return [
            { tag: "fell soon", opened: 1000, outage: 100, shared: 0, reopened: true },
            { tag: "fell late, short", opened: 120000, outage: 100, shared: 3, reopened: false },
            { tag: "fell late, long, shared", opened: 180000, outage: 70000, shared: 3, reopened: true },
            { tag: "fell late, long, private", opened: 180000, outage: 70000, shared: 0, reopened: false }
        ]
    }
    function test_reopening(data) {
        verify(open(data.shared, true))
        study.setKernos([[1, -1, 5, 5]])
        krnFile.connected()
        krnFile.disconnected()
        var now = Date.now()
        CentralManager.reopen.timestamp = new Date(now - data.opened)
        CentralManager.disconnectedAt = new Date(now - data.outage)
        opened.clear()
        krnFile.connected()
        compare(opened.count, data.reopened ? 1 : 0)
        // A project that was made new must not be made new again.
        compare(krnFile.kernoIds().length, 1)
        compare(CentralManager.connected, true)
    }

    function test_anotherSessionEndsReconnecting() {
        krnFile.connected()
        krnFile.closedDueToAnotherSession()
        compare([CentralManager.connected, CentralManager.reconnect], [false, false])
        krnFile.connected()
        compare([CentralManager.connected, CentralManager.reconnect], [true, true])
    }

    function test_onlyOnesOwnMemoOpensThePanelOnce() {
        var own = idManager.nextMemoId()
        CentralManager.notifyMemoAdded(own - 1)
        compare([CentralManager.showMemosPanel, CentralManager.currentMemoId], [false, -1])
        CentralManager.notifyMemoAdded(own)
        compare([CentralManager.showMemosPanel, CentralManager.currentMemoId], [true, own])
        // What is written into it is saved when it has lost the focus, which it must not take back.
        CentralManager.currentMemoId = -1
        CentralManager.notifyMemoAdded(own)
        compare(CentralManager.currentMemoId, -1)
    }

    function test_panelsExcludeEachOther() {
        CentralManager.showMetadataOverviewPanel = true
        CentralManager.showSearchPanel = true
        compare(CentralManager.showMetadataOverviewPanel, false)
        CentralManager.searchPanelMinimized = true
        CentralManager.showMetadataPanel = true
        compare([CentralManager.showSearchPanel, CentralManager.searchPanelMinimized], [false, false])
    }

    function test_viewsLimitUndo() {
        CentralManager.showHierarchyViewForKerno = 7
        compare([CentralManager.parentForNew, locks.count, unlocks.count], [7, 1, 0])
        CentralManager.showHierarchyViewForKerno = -1
        compare([CentralManager.parentForNew, locks.count, unlocks.count], [-1, 1, 1])
        CentralManager.showQueryScreen = true
        compare(locks.count, 2)
    }

    function test_oneSelectionIsEnough() {
        CentralManager.countSelection(true)
        CentralManager.countSelection(true)
        CentralManager.countSelection(false)
        compare(CentralManager.hasUserSelectedText, true)
        CentralManager.countSelection(false)
        compare(CentralManager.hasUserSelectedText, false)
    }
}
