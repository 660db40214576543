import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/StructuredQuestion"

// Taking a passage up with the mouse, and coding it with a key.
Item {
    id: test
    width: 600
    height: 400

    StructuredQuestionItem {
        id: item
        width: 600
        windowHeight: 400
        showQuestion: false
        questionId: 2
        sourceId: 3
        offset: 100
        answer: "One two three four five six seven"
        dragItem: symbol
    }

    TextDragItem { id: symbol }

    TestCase {
        name: "TextDrag"
        when: windowShown

        readonly property Item text: item.mainTextArea
        property Item area

        function initTestCase() {
            for (var i = 0; i < item.children.length; ++i) {
                if (item.children[i].startsDrag)
                    area = item.children[i]
            }
            tryCompare(text, "loaded", true)
            verify(area)
        }

        function init() {
            undoManager.calls = []
            text.deselect()
        }

        function pointAt(position) {
            var r = text.positionToRectangle(position)
            return text.mapToItem(test, r.x, r.y + r.height / 2)
        }

        function test_startRule_data() {
            return [
                { tag: "at the start", start: 4, end: 7, position: 4, starts: false },
                { tag: "after the start", start: 4, end: 7, position: 5, starts: true },
                { tag: "at the end", start: 4, end: 7, position: 7, starts: true },
                { tag: "after the end", start: 4, end: 7, position: 8, starts: false },
                { tag: "a blank", start: 3, end: 4, position: 4, starts: false }
            ]
        }
        function test_startRule(data) {
            text.select(data.start, data.end)
            compare(area.startsDrag(data.position), data.starts)
        }

        function test_aDragCarriesPositionsOfTheWholeAnswer() {
            text.select(4, 13)
            area.quickClick = 0
            var p = pointAt(8)
            mousePress(test, p.x, p.y)
            compare([symbol.start, symbol.length, symbol.sourceId, symbol.questionId], [104, 9, 3, 2])
            compare(symbol.Drag.active, true)
            fuzzyCompare(symbol.x + 24, p.x, 1)
            mouseMove(test, p.x - 60, p.y + 80, -1, Qt.LeftButton)
            mouseMove(test, p.x - 70, p.y + 90, -1, Qt.LeftButton)
            fuzzyCompare(symbol.x + 24, p.x - 70, 2)
            mouseRelease(test, p.x - 70, p.y + 90)
            compare(symbol.Drag.active, false)
            // A drop outside any target leaves the selection.
            compare(text.selectedText, "two three")
        }

        function test_aQuickClickInTheSelectionClearsIt() {
            text.select(4, 13)
            area.quickClick = 60000
            var p = pointAt(8)
            mouseClick(test, p.x, p.y)
            compare(text.selectedText, "")
        }

        function test_otherPressesReachTheText() {
            var from = pointAt(0)
            var to = pointAt(7)
            mousePress(test, from.x + 1, from.y)
            mouseMove(test, (from.x + to.x) / 2, to.y, -1, Qt.LeftButton)
            mouseMove(test, to.x + 1, to.y, -1, Qt.LeftButton)
            mouseRelease(test, to.x + 1, to.y)
            compare(text.selectedText, "One two")
            mouseDoubleClickSequence(test, pointAt(9).x, pointAt(9).y)
            compare(text.selectedText, "three")
        }

        function test_codingByKey_data() {
            return [
                { tag: "letter", start: 4, end: 7, key: Qt.Key_A, modifiers: Qt.NoModifier, coded: true },
                { tag: "no selection", start: 4, end: 4, key: Qt.Key_A, modifiers: Qt.NoModifier, coded: false },
                { tag: "blank selection", start: 3, end: 4, key: Qt.Key_A, modifiers: Qt.NoModifier, coded: false },
                { tag: "with Ctrl", start: 4, end: 7, key: Qt.Key_B, modifiers: Qt.ControlModifier, coded: false },
                { tag: "with Alt", start: 4, end: 7, key: Qt.Key_B, modifiers: Qt.AltModifier, coded: false },
                { tag: "no text", start: 4, end: 7, key: Qt.Key_F5, modifiers: Qt.NoModifier, coded: false }
            ]
        }
        function test_codingByKey(data) {
            text.forceActiveFocus()
            text.select(data.start, data.end)
            keyClick(data.key, data.modifiers)
            compare(undoManager.names(), data.coded ? ["tryAddHighlightByShortcut"] : [])
            // A key that is held with another counts as it was pressed, whichever goes up first.
            keyPress(Qt.Key_C, Qt.ControlModifier)
            keyRelease(Qt.Key_C, Qt.NoModifier)
            compare(undoManager.calls.length, data.coded ? 1 : 0)
            if (data.coded) {
                var highlight = undoManager.last().arguments[0]
                compare([highlight.start, highlight.length, undoManager.last().arguments[1]], [104, 3, "a"])
                compare(text.selectedText, "two")
            }
        }

        function test_copyNamesTheSource() {
            mockSources.reset([{ sourceId: 3, title: "Marta", icon: "", author: "", timestamp: new Date(),
                                 sourcePercentageCoded: 0 }])
            text.forceActiveFocus()
            text.select(4, 7)
            keyClick(Qt.Key_C, Qt.ControlModifier)
            compare(appHelper.clipboard, "two\n\n-- Marta --\n\n")
        }

        function test_stripesShareTheColumn() {
            text.highlightsModel.reset([
                { highlightId: 1, color: "#ff0000", title: "A", y1: 0, y2: 40, column: 0 },
                { highlightId: 2, color: "#00ff00", title: "B", y1: 10, y2: 30, column: 1 }])
            text.highlightsModel.columns = 2
            var x = text.x - ApplicationStyle.default_margin - CentralManager.highlightsColumnWidth
            var half = CentralManager.highlightsColumnWidth / 2
            mouseMove(item, x + half / 2, 5)
            mouseMove(item, x + half / 2, 6)
            compare(text.currentHighlight, 1)
            mouseMove(item, x + half * 1.5, 20)
            compare(text.currentHighlight, 2)
            mouseMove(item, x + half * 1.5, 60)
            compare(text.currentHighlight, -1)
        }
    }
}
