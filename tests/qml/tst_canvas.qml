import QtQuick 2.15
import QtTest 1.15
import Kernova 1.4
import "qrc:/qml/Components"
import "qrc:/qml/Kerno/CircleKerno"

// What bubbles do under the mouse besides what a person mostly does.
Item {
    id: test
    width: 760
    height: 600

    CircleKernoCanvas {
        id: canvas
        width: 700
        height: 525
    }

    TextDragItem {
        id: symbol
        start: 10
        length: 5
        sourceId: 3
        questionId: 1
    }

    SignalSpy { id: notices; target: CentralManager; signalName: "noticeRequested" }

    TestCase {
        name: "Canvas"
        when: windowShown

        readonly property Item content: canvas.flickableContent
        readonly property Item mouseArea: canvas.canvasMouseArea

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

        function initTestCase() {
            verify(study.open())
        }

        function init() {
            CentralManager.canMutate = true
            CentralManager.canvasBaseScale = 1
            CentralManager.autoArrangeKernos = false
            mouseArea.thresholdBeforeShowingLevel1 = 0
            study.setKernos([[1, -1, 100, 100], [2, -1, 300, 100], [3, -1, 500, 300], [4, 1, 1, 1], [5, 1, 1, 1]])
            tryVerify(function() { return bubble(1) && bubble(2) && bubble(3) && bubble(4) })
            move(at(650, 480))
            move(at(640, 480))
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

        function test_aKernoGoesOnlyWhereItIsDrawn_data() {
            return [{ tag: "fourth level", canMutate: true }, { tag: "reader", canMutate: false }]
        }
        function test_aKernoGoesOnlyWhereItIsDrawn(data) {
            CentralManager.canMutate = data.canMutate
            study.setKernos([[1, -1, 100, 100], [2, -1, 300, 100], [3, -1, 500, 300], [4, 1, 1, 1], [5, 1, 1, 1],
                             [6, 4, 1, 1]])
            notices.clear()
            tryVerify(function() { return bubble(6) && bubble(3) })
            drag(at(500, 300), data.canMutate ? at(100, 202) : at(300, 100),
                 data.canMutate ? [at(100, 100), at(100, 150), at(100, 152)] : [])
            compare(undoManager.count, 0)
            compare(notices.count, data.canMutate ? 1 : 0)
            compare([bubble(3).x, bubble(3).y], [500 - bubble(3).scaledR, 300 - bubble(3).scaledR])
        }

        function test_aChildDroppedOutsideStaysAChild() {
            move(at(98, 100))
            move(at(100, 100))
            move(at(100, 150))
            drag(at(100, 150), at(100, -45))
            compare(undoManager.count, 0)
            compare(krnFile.kerno(4).parentKernoId, 1)
        }

        function test_aPassageOpensRingsAtOnce() {
            mouseArea.thresholdBeforeShowingLevel1 = 100000
            symbol.pickUp(at(350, 400))
            for (var i = 1; i <= 8; ++i) {
                symbol.x = at(350 - 250 * i / 8, 0).x - symbol.width / 2
                symbol.y = at(0, 400 - 300 * i / 8).y - symbol.height / 2
            }
            tryCompare(canvas.canvasDropArea, "level0KernoId", 1)
            symbol.y += 50
            tryCompare(canvas.canvasDropArea, "level1KernoId", 4)
            symbol.drop()
            compare(krnFile.highlightIdsByKernoIdAndSourceId(4, 3).length, 1)
        }
    }
}
