import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/dialogs"
import "qrc:/qml/dialogs/ImportDialogs"

// The dialogs about one kerno, and the import of one source.
Item {
    id: root
    width: 900
    height: 700

    property Component implementation

    Loader {
        id: loader
        anchors.fill: parent
        sourceComponent: root.implementation ? base : null
    }

    Component {
        id: base
        DialogBase { implementation: root.implementation }
    }

    Component { id: preferences; KernoPreferencesDialogImplementation {} }
    Component { id: merging; MergeKernosDialog {} }
    Component { id: importing; ImportSourceDialogImplementation {} }

    TestCase {
        name: "KernoDialogs"
        when: windowShown

        function row(id, title) {
            return { kernoId: id, parentKernoId: -1, title: title, color: "#3060c0", description: "", x: 1, y: 1,
                     visible: true, highlightsCount: 0, scale: 0.7, hasChildren: false }
        }

        function init() {
            undoManager.calls = []
            mockKernos.reset([row(1, ""), row(2, "Time"), row(3, "care")])
            CentralManager.canMutate = true
        }

        function cleanup() {
            root.implementation = null
            CentralManager.showPreferencesDialogForKerno = -1
            CentralManager.showMergeDialogForKernoId = -1
            CentralManager.showImportDialog = 0
        }

        function open(component) {
            root.implementation = component
            tryVerify(function() { return loader.item && loader.item.content })
            return loader.item.content
        }

        function test_preferencesAreSavedTrimmed() {
            CentralManager.showPreferencesDialogForKerno = 1
            var dialog = open(preferences)
            findChild(dialog, "kernoTitle").text = "  Listening "
            findChild(dialog, "kernoDescription").text = " to people\n"
            dialog.kernoColor = "#ff0000"
            var ticks = findChild(dialog, "groupTicks").parent
            ticks.toggle(2)
            ticks.toggle(3)
            ticks.toggle(3)
            ticks.toggle(1)
            dialog.save()
            compare(undoManager.names(), ["beginMacro", "updateKerno", "addKernoGroup", "deleteKernoGroup", "endMacro"])
            compare([undoManager.calls[2].arguments, undoManager.calls[3].arguments], [[1, 2], [1, 1]])
            var saved = undoManager.calls[1].arguments[0]
            compare([saved.kernoId, saved.title, saved.description, String(saved.color)],
                    [1, "Listening", "to people", "#ff0000"])
        }

        function test_mergingOffersTheOthersInOrder() {
            CentralManager.showMergeDialogForKernoId = 1
            var dialog = open(merging)
            compare(dialog.candidates.map(function(kerno) { return kerno.kernoId }), [3, 2])
            dialog.merge()
            compare(undoManager.last().arguments, [1, 3, "care (merged)"])
        }

        function test_importNeedsItemsAndATitle() {
            krnFile.singleQuestionMode = false
            idManager.sourceId = 6
            CentralManager.showImportDialog = 2
            appHelper.found = []
            var dialog = open(importing)
            verify(dialog.message !== "")
            appHelper.found = [{ question: "Why?", answer: "Because." }]
            dialog.refresh()
            compare(dialog.message, "")
            dialog.importNow()
            compare(appHelper.saved, [["Source 7", 1]])
            krnFile.singleQuestionMode = true
        }
    }
}
