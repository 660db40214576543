import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/Source"

// Which sources stand as tabs.
TestCase {
    id: test
    name: "SourcesList"
    when: windowShown

    SourcesList {
        id: list
        width: 300
    }

    function source(id) {
        return { sourceId: id, title: "Source " + id, icon: "", author: "", timestamp: new Date(2024, 1, 1),
                 sourcePercentageCoded: 10 * id }
    }

    function init() {
        krnFile.isOpened = false
        krnFile.fileClosed()
        CentralManager.showOpenFileDialog = false
        CentralManager.showCloudOpenFileDialog = false
        krnFile.preferences = {}
        CentralManager.canMutate = true
        mockSources.reset([1, 2, 3, 4, 5].map(source))
        krnFile.isOpened = true
    }

    function saved() {
        return krnFile.preferences["SourcesList.CurrentIds"]
    }

    function test_restoring_data() {
        return [
            { tag: "nothing saved", saved: undefined, ids: [1, 2, 3] },
            { tag: "one gone", saved: "[9,4]", ids: [4, 1, 2] },
            { tag: "as saved", saved: "[5,3,1]", ids: [5, 3, 1] },
            { tag: "too many", saved: "[5,4,3,2,1]", ids: [5, 4, 1] },
            { tag: "no list", saved: "broken", ids: [1, 2, 3] }
        ]
    }
    function test_restoring(data) {
        krnFile.preferences = { "SourcesList.CurrentIds": data.saved }
        list.restoreSavedCurrentIds()
        compare(list.currentIds, data.ids)
        compare(CentralManager.currentSourceId, data.ids[0])
        compare(list.sourcePercentageCoded, 10 * data.ids[0])
    }

    function test_switchingDropsTheLastTab() {
        list.currentIds = [1, 2, 3]
        list.switchToSource(4, 1)
        compare(list.currentIds, [4, 1, 2])
        compare(CentralManager.currentSourceId, 4)
        compare(saved(), "[4,1,2]")
        list.switchToSource(2, 4)
        compare(list.currentIds, [4, 1, 2])
    }

    function test_readersDoNotSave() {
        CentralManager.canMutate = false
        list.currentIds = [1, 2, 3]
        list.switchToSource(5, 1)
        compare(CentralManager.currentSourceId, 5)
        compare(saved(), undefined)
    }

    function test_newSources_data() {
        return [
            { tag: "own", own: true, before: [1, 2, 3], ids: [5, 1, 2], current: 5 },
            { tag: "another's, full", own: false, before: [1, 2, 3], ids: [1, 2, 3], current: 1 },
            { tag: "another's, room", own: false, before: [1, 2], ids: [5, 1, 2], current: 1 }
        ]
    }
    function test_newSources(data) {
        list.currentIds = data.before
        CentralManager.notifyCurrentSourceChanged(1)
        idManager.sourceId = data.own ? 5 : 6
        CentralManager.notifyNewSourceAdded(5)
        compare(list.currentIds, data.ids)
        compare(CentralManager.currentSourceId, data.current)
    }

    function test_deletedSourceLeavesItsTab() {
        list.restoreSavedCurrentIds()
        mockSources.removeAt(0)
        krnFile.sourceDeleted(1)
        compare(list.currentIds, [2, 3, 4])
        compare(CentralManager.currentSourceId, 2)
        mockSources.reset([])
        krnFile.sourceDeleted(2)
        compare(list.currentIds, [])
        compare(CentralManager.currentSourceId, -1)
    }
}
