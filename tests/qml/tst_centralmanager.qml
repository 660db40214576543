import QtQuick 2.15
import QtTest 1.15
import Kernova 1.4
import "qrc:/qml/Components"

// The shared state: what it derives, and how it follows the project.
TestCase {
    name: "CentralManager"

    SignalSpy { id: locks; target: CentralManager; signalName: "setNewUndoStackLock" }
    SignalSpy { id: unlocks; target: CentralManager; signalName: "removeUndoStackLock" }
    SignalSpy { id: status; target: CentralManager; signalName: "showStatusMessage" }

    function init() {
        krnFile.openResult = true
        krnFile.calls = []
        krnFile.preferences = {}
        CentralManager.cloud = false
        CentralManager.switchToDefaultView()
        CentralManager.showMemosPanel = false
        CentralManager.currentMemoId = -1
        locks.clear()
        unlocks.clear()
        status.clear()
    }

    function project(more) {
        var object = { name: "/tmp/a.krn", project_uuid: "" }
        for (var key in more || {})
            object[key] = more[key]
        return object
    }

    function test_autopositions_data() {
        return [
            { tag: "5 of 7", index: 4, count: 7, x: 455, y: 262.5 },
            { tag: "1 of 13", index: 0, count: 13, x: 56, y: 42 },
            // 3 rows of 5
            { tag: "7 of 13", index: 6, count: 13, x: 126 + 56, y: 157.5 + 42 },
            { tag: "negative", index: -1, count: 13, x: 0, y: 0 }
        ]
    }
    function test_autopositions(data) {
        var position = CentralManager.getAutoposition(data.index, data.count)
        fuzzyCompare(position.x, data.x, 1e-6)
        fuzzyCompare(position.y, data.y, 1e-6)
    }

    function test_everyAutopositionLiesOnTheCanvasAndIsItsOwn() {
        for (var count = 1; count < 60; ++count) {
            var seen = {}
            for (var i = 0; i < count; ++i) {
                var p = CentralManager.getAutoposition(i, count)
                verify(p.x > 0 && p.x < 700 && p.y > 0 && p.y < 525, count + "/" + i)
                verify(!seen[p.x + "," + p.y], count + "/" + i)
                seen[p.x + "," + p.y] = true
            }
        }
    }

    function test_openingReadsPreferencesAndKeepsWhatToReopen() {
        krnFile.preferences = { "HighlightsColumn.Width": 80, "Source.FontSize": 17,
                                "Report.GenerateOverlapViews": "1", "Report.GenerateHierarchyViews": true }
        verify(CentralManager.openProject(project(), "pw", true, true, false))
        compare(CentralManager.highlightsColumnWidth, 80)
        compare(CentralManager.sourceFontSize, 17)
        compare(CentralManager.generateOverlapViews, true)
        compare(CentralManager.generateHierarchyViews, false)
        compare(CentralManager.reopen.password, "pw")
        compare(CentralManager.canMutate, true)
        CentralManager.highlightsColumnWidth = 55
        CentralManager.sourceFontSize = 13

        krnFile.openResult = false
        verify(!CentralManager.openProject(project({ name: "/tmp/b.krn" }), "", false, true, false))
        compare(CentralManager.reopen.project.name, "/tmp/b.krn")
        krnFile.fileClosed()
        compare(CentralManager.reopen, undefined)
        compare(CentralManager.showOpenFileDialog, true)
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
        CentralManager.openProject(project({ shared_count: data.shared }), "", true, true, false)
        krnFile.connected()
        krnFile.disconnected()
        var now = Date.now()
        CentralManager.reopen.timestamp = new Date(now - data.opened)
        CentralManager.disconnectedAt = new Date(now - data.outage)
        krnFile.calls = []
        krnFile.connected()
        compare(krnFile.calls.length > 0, data.reopened)
        // A project that was made new must not be made new again, and is marked as open again.
        if (data.reopened) {
            compare(krnFile.calls[0].arguments[1], false)
            compare(krnFile.calls[0].arguments[4], false)
        }
        compare(CentralManager.connected, true)
    }

    function test_anotherSessionEndsReconnecting() {
        krnFile.connected()
        krnFile.closedDueToAnotherSession()
        compare([CentralManager.connected, CentralManager.reconnect], [false, false])
        krnFile.connected()
        compare([CentralManager.connected, CentralManager.reconnect], [true, true])
    }

    function test_onlyOnesOwnMemoOpensThePanel() {
        idManager.memoId = 5
        krnFile.memoSaved({ memoId: 4 })
        compare([CentralManager.showMemosPanel, CentralManager.currentMemoId], [false, -1])
        krnFile.memoSaved({ memoId: 5 })
        compare([CentralManager.showMemosPanel, CentralManager.currentMemoId], [true, 5])
        // What is written into it is saved when it has lost the focus, which it must not take back.
        CentralManager.currentMemoId = -1
        krnFile.memoSaved({ memoId: 5 })
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
        compare(CentralManager.parentForNew, 7)
        compare([locks.count, unlocks.count], [1, 0])
        CentralManager.showHierarchyViewForKerno = -1
        compare(CentralManager.parentForNew, -1)
        compare([locks.count, unlocks.count], [1, 1])
        CentralManager.showQueryScreen = true
        compare(locks.count, 2)
    }

    function test_countsFollowHighlights() {
        krnFile.highlightsUpdated(1, 1)
        compare([CentralManager.totalNumberOfHighlights, CentralManager.maxNumberOfHighlights], [12, 5])
        fuzzyCompare(CentralManager.kernoScaleHighlightFactor(5), 1.5, 1e-9)
    }

    function test_oneSelectionIsEnough() {
        CentralManager.countSelection(true)
        CentralManager.countSelection(true)
        CentralManager.countSelection(false)
        compare(CentralManager.hasUserSelectedText, true)
        CentralManager.countSelection(false)
        compare(CentralManager.hasUserSelectedText, false)
    }

    function test_hoverTellsTheTooltipOrElseTheLabel() {
        CentralManager.onButtonHoverChanged({ hovered: true, text: "Undo", tooltip: "" })
        compare(status.signalArguments[0][0], "Undo")
        CentralManager.onButtonHoverChanged({ hovered: true, text: "View", tooltip: "Customise current view." })
        compare(status.signalArguments[1][0], "Customise current view.")
    }
}
