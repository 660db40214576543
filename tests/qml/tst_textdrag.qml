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
        questionId: 1
        sourceId: 3
        answer: "One two three four five six seven"
        dragItem: symbol
    }

    TextDragItem { id: symbol }

    TextEdit { id: pasted }

    TestCase {
        name: "TextDrag"
        when: windowShown

        readonly property Item text: item.mainTextArea
        property Item area

        function initTestCase() {
            verify(study.open())
            study.setSource(3, "Marta", item.answer)
            for (var i = 0; i < item.children.length; ++i) {
                if (item.children[i].startsDrag)
                    area = item.children[i]
            }
            tryCompare(text, "loaded", true)
            verify(area)
        }

        function init() {
            study.setKernos([[1, -1, 100, 100]])
            CentralManager.canMutate = true
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

        function test_aQuickClickInTheSelectionClearsIt() {
            text.select(4, 13)
            area.quickClick = 60000
            var p = pointAt(8)
            mouseClick(test, p.x, p.y)
            compare(text.selectedText, "")
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
            ["A", "B", "C"].forEach(function(key) { undoManager.setKernoShortcut(key, 1) })
            var before = undoManager.count
            text.forceActiveFocus()
            text.select(data.start, data.end)
            keyClick(data.key, data.modifiers)
            // A key that is held with another counts as it was pressed, whichever goes up first.
            keyPress(Qt.Key_C, Qt.ControlModifier)
            keyRelease(Qt.Key_C, Qt.NoModifier)
            compare(undoManager.count - before, data.coded ? 1 : 0)
            if (data.coded) {
                var highlight = krnFile.highlights(3)[0]
                compare([highlight.kernoId, highlight.start, highlight.length], [1, 4, 3])
                compare(text.selectedText, "two")
            }
        }

        function test_copyNamesTheSource() {
            text.forceActiveFocus()
            text.select(4, 7)
            keyClick(Qt.Key_C, Qt.ControlModifier)
            pasted.paste()
            compare(pasted.text, "two\n\n-- Marta --\n\n\n")
        }
    }
}
