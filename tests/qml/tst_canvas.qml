import QtQuick 2.15
import QtTest 1.15
import Kernova 1.4
import "qrc:/qml/Components"
import "qrc:/qml/Kerno/CircleKerno"
import "qrc:/qml/Kerno/CircleKerno/KernoHitTest.js" as HitTest

// Bubbles on the canvas, moved and coded into with the mouse.
Item {
    id: test
    width: 760
    height: 600

    CircleKernoCanvas {
        id: canvas
        width: 700
        height: 525
        newKernoButton: addButton
    }

    AddKernoButton {
        id: addButton
        x: 620
        y: 5
    }

    TextDragItem {
        id: symbol
        start: 10
        length: 5
        sourceId: 3
        questionId: 2
    }

    SignalSpy { id: notices; target: CentralManager; signalName: "noticeRequested" }

    TestCase {
        name: "Canvas"
        when: windowShown

        readonly property Item content: canvas.flickableContent
        readonly property Item mouseArea: canvas.canvasMouseArea

        function kerno(id, parent, x, y, children) {
            return { kernoId: id, parentKernoId: parent, title: "K" + id, color: "#3060c0", description: "", x: x, y: y,
                     visible: true, highlightsCount: 0, highlightsCountWithChildren: 0, scale: 0.7, hasChildren: !!children }
        }

        function bubble(id) {
            for (var level = 0; level < 3; ++level) {
                var found = __bubbles(content, level).filter(function(item) { return item.kernoId === id })
                if (found.length > 0)
                    return found[0]
            }
            return null
        }

        function __bubbles(item, level) {
            var found = []
            for (var i = 0; i < item.children.length; ++i) {
                var child = item.children[i]
                if (child.type === "kerno" && child.level === level)
                    found.push(child)
                else
                    found = found.concat(__bubbles(child, level))
            }
            return found
        }

        // A point of the canvas, in canvas units, in the coordinates of the test.
        function at(x, y) {
            return content.mapToItem(test, x, y)
        }

        function move(point, buttons) {
            mouseMove(test, point.x, point.y, -1, buttons || Qt.NoButton)
        }

        function drag(from, to, by) {
            move(Qt.point(from.x - 3, from.y))
            move(from)
            mousePress(test, from.x, from.y)
            for (var k = 0; by && k < by.length; ++k) {
                move(Qt.point(by[k].x + 1, by[k].y), Qt.LeftButton)
                wait(0)
                move(by[k], Qt.LeftButton)
                wait(0)
                from = by[k]
            }
            for (var i = 1; i <= 8; ++i)
                move(Qt.point(from.x + (to.x - from.x) * i / 8, from.y + (to.y - from.y) * i / 8), Qt.LeftButton)
            // What is dragged tells where it is by events of its own.
            wait(0)
            mouseRelease(test, to.x, to.y)
        }

        function dragText(to) {
            symbol.pickUp(at(350, 400))
            for (var i = 1; i <= 8; ++i) {
                var from = at(350, 400)
                symbol.x = from.x + (to.x - from.x) * i / 8 - symbol.width / 2
                symbol.y = from.y + (to.y - from.y) * i / 8 - symbol.height / 2
            }
        }

        function init() {
            CentralManager.canMutate = true
            CentralManager.canvasBaseScale = 1
            CentralManager.autoArrangeKernos = false
            undoManager.calls = []
            mouseArea.thresholdBeforeShowingLevel1 = 0
            mockKernos.reset([kerno(1, -1, 100, 100, true), kerno(2, -1, 300, 100), kerno(3, -1, 500, 300),
                              kerno(4, 1, 0, 0), kerno(5, 1, 0, 0)])
            tryVerify(function() { return bubble(1) && bubble(2) && bubble(3) && bubble(4) })
            move(at(650, 480))
            move(at(640, 480))
        }

        function test_bubblesStandAtTheirCentre() {
            var b = bubble(3)
            compare([b.x, b.y], [500 - b.scaledR, 300 - b.scaledR])
            compare(b.width, 2 * Units.dp(25))
            CentralManager.autoArrangeKernos = true
            var p = CentralManager.getAutoposition(2, 3)
            compare([b.x + b.scaledR, b.y + b.scaledR], [p.x, p.y])
        }

        function test_ringSizes_data() {
            return [
                { tag: "none", children: 0, closed: 1.2, open: 1.2 },
                { tag: "one", children: 1, closed: 1.2, open: 2.1 },
                { tag: "seven", children: 7, closed: 1.2, open: 2.1 },
                { tag: "eight", children: 8, closed: 1.2, open: 3 }
            ]
        }
        function test_ringSizes(data) {
            var rows = [kerno(1, -1, 300, 300, true)]
            for (var i = 0; i < data.children; ++i)
                rows.push(kerno(10 + i, 1, 0, 0))
            mockKernos.reset(rows)
            tryVerify(function() { return bubble(1) && bubble(1).ring.count === data.children })
            var ring = bubble(1).ring
            compare(ring.size, data.closed * 50)
            move(at(298, 300))
            move(at(300, 300))
            compare(mouseArea.level0KernoId, 1)
            compare(ring.size, data.open * 50)
        }

        function test_aPassingMouseSelectsNoChild() {
            mouseArea.thresholdBeforeShowingLevel1 = 100000
            move(at(98, 100))
            move(at(100, 100))
            move(at(100, 140))
            compare([mouseArea.level0KernoId, mouseArea.level1KernoId], [1, -1])
            mouseArea.thresholdBeforeShowingLevel1 = 0
            move(at(100, 142))
            compare(mouseArea.level1KernoId, 4)
            move(at(400, 400))
            move(at(401, 400))
            move(at(402, 400))
            compare([mouseArea.level0KernoId, mouseArea.level1KernoId], [-1, -1])
        }

        function test_draggingABubbleStoresItsPlaceOnce() {
            drag(at(500, 300), at(400, 200))
            compare(undoManager.names(), ["updateKerno"])
            var stored = undoManager.last().arguments[0]
            compare(stored.kernoId, 3)
            verify(Math.abs(stored.x - 400) <= 12 && Math.abs(stored.y - 200) <= 12, stored.x + "," + stored.y)
            compare(bubble(3).x, stored.x - bubble(3).scaledR)
        }

        function test_aBubbleDroppedOutsideGoesBack() {
            drag(at(500, 300), at(720, 300))
            compare(undoManager.names(), [])
            compare(bubble(3).x, 500 - bubble(3).scaledR)
            // Nothing has told the canvas that the pointer left it; a passage finds the bubble all the same.
            dragText(at(500, 300))
            tryCompare(canvas.canvasDropArea, "level0KernoId", 3)
            symbol.drop()
            compare(undoManager.names(), ["addHighlight"])
        }

        function test_aKernoGoesOnlyWhereItIsDrawn_data() {
            return [{ tag: "fourth level", canMutate: true }, { tag: "reader", canMutate: false }]
        }
        function test_aKernoGoesOnlyWhereItIsDrawn(data) {
            CentralManager.canMutate = data.canMutate
            notices.clear()
            mockKernos.append(kerno(6, 4, 0, 0))
            mockKernos.change(mockKernos.find("kernoId", 4), { hasChildren: true })
            var target = { level: data.canMutate ? 2 : 0, kernoId: data.canMutate ? 6 : 2 }
            verify(!canvas.canvasDropArea.takesKerno(3, target))
            verify(!data.canMutate || canvas.canvasDropArea.takesKerno(3, { level: 1, kernoId: 4 }))
            drag(at(500, 300), data.canMutate ? at(100, 202) : at(300, 100),
                 data.canMutate ? [at(100, 100), at(100, 150), at(100, 152)] : [])
            compare(undoManager.names(), [])
            compare(notices.count, data.canMutate ? 1 : 0)
            compare([bubble(3).x, bubble(3).y], [500 - bubble(3).scaledR, 300 - bubble(3).scaledR])
        }

        function test_sortedArrangementKeepsItsPlaces() {
            CentralManager.setKernoAutoArrangeMode(true, KernoProxyModel.ByTitleAscending)
            var b = bubble(3)
            drag(at(b.x + 25, b.y + 25), at(b.x - 100, b.y - 90))
            compare(undoManager.names(), [])
            CentralManager.setKernoAutoArrangeMode(false, KernoProxyModel.NoSort)
        }

        function test_aBubbleDroppedOnAnotherBecomesItsChild() {
            drag(at(500, 300), at(300, 100))
            compare(undoManager.names(), ["updateKerno"])
            compare(undoManager.last().arguments[0].parentKernoId, 2)
        }

        function test_aChildDraggedOutBecomesTopLevel() {
            move(at(98, 100))
            move(at(100, 100))
            move(at(100, 150))
            compare(mouseArea.level1KernoId, 4)
            drag(at(100, 150), at(250, 350))
            compare(undoManager.names(), ["updateKerno"])
            var stored = undoManager.last().arguments[0]
            compare([stored.kernoId, stored.parentKernoId], [4, -1])
            verify(Math.abs(stored.x - 250) <= 12 && Math.abs(stored.y - 350) <= 12, stored.x + "," + stored.y)
        }

        function test_aChildDroppedOutsideStaysAChild() {
            move(at(98, 100))
            move(at(100, 100))
            move(at(100, 150))
            drag(at(100, 150), at(100, -45))
            compare(undoManager.names(), [])
        }

        function test_aPassageDroppedOnABubbleIsCoded() {
            dragText(at(300, 100))
            tryCompare(canvas.canvasDropArea, "level0KernoId", 2)
            compare(canvas.canvasDropArea.containsTextDrag, true)
            compare(String(bubble(2).background), "#808080")
            symbol.drop()
            compare(undoManager.names(), ["addHighlight"])
            var highlight = undoManager.last().arguments[0]
            compare([highlight.start, highlight.length, highlight.sourceId, highlight.questionId, highlight.kernoId],
                    [10, 5, 3, 2, 2])
            compare(String(bubble(2).background), "#3060c0")
        }

        function test_aPassageOpensRingsAtOnce() {
            mouseArea.thresholdBeforeShowingLevel1 = 100000
            dragText(at(100, 100))
            tryCompare(canvas.canvasDropArea, "level0KernoId", 1)
            symbol.y += 50
            tryCompare(canvas.canvasDropArea, "level1KernoId", 4)
            symbol.drop()
            compare(undoManager.last().arguments[0].kernoId, 4)
        }

        function test_aPassageDroppedOnTheAddButton_data() {
            return [{ tag: "writer", canMutate: true }, { tag: "reader", canMutate: false }]
        }
        function test_aPassageDroppedOnTheAddButton(data) {
            CentralManager.canMutate = data.canMutate
            dragText(Qt.point(addButton.x + 30, addButton.y + 30))
            tryCompare(canvas.canvasDropArea, "overNewKernoButton", true)
            symbol.drop()
            compare(undoManager.names(), data.canMutate ? ["addHighlightToNewKerno"] : [])
            if (data.canMutate)
                compare(undoManager.last().arguments[0].kernoId, undoManager.last().arguments[1].kernoId)
        }

        function test_aHiddenKernoStaysWhileAChildIsVisible() {
            mockKernos.change(0, { visible: false })
            verify(bubble(1).parent.visible)
            mockKernos.change(3, { visible: false })
            mockKernos.change(4, { visible: false })
            mockKernos.change(0, { visible: false })
            verify(!bubble(1).parent.visible)
        }

        function test_codingTextTellsChildrenApart() {
            mockKernos.change(0, { highlightsCount: 2, highlightsCountWithChildren: 5 })
            mockKernos.change(3, { highlightsCount: 3, highlightsCountWithChildren: 3 })
            CentralManager.showNumberOfCodingsInKernos = true
            compare([bubble(1).codingText, bubble(4).codingText], ["2 (5)", "3"])
            CentralManager.showNumberOfCodingsInKernos = false
        }
    }
}
