import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/Kerno/Models"

// The order that a person gives to automatically arranged kernos.
TestCase {
    name: "ManualOrder"

    KernosModel { id: model }

    function test_rebuilding_data() {
        return [
            { tag: "new ones last", order: [3, 1], present: [1, 2, 3], result: [3, 1, 2] },
            { tag: "gone ones out", order: [4, 3, 1], present: [1, 3], result: [3, 1] },
            { tag: "from nothing", order: [], present: [2, 1], result: [2, 1] }
        ]
    }
    function test_rebuilding(data) {
        compare(model.rebuiltOrder(data.order, data.present), data.result)
    }

    function test_rearranging_data() {
        // Four kernos stand in the corners of a rectangle.
        return [
            { tag: "own place", id: 1, x: 140, y: 105, order: [1, 2, 3, 4] },
            { tag: "right of the second", id: 1, x: 570, y: 105, order: [2, 1, 3, 4] },
            { tag: "left of the second", id: 4, x: 550, y: 105, order: [4, 1, 2, 3] },
            { tag: "left of the first", id: 3, x: 10, y: 10, order: [3, 1, 2, 4] },
            { tag: "unknown", id: 9, x: 10, y: 10, order: [1, 2, 3, 4] }
        ]
    }
    function test_rearranging(data) {
        model.manualSortOrder = [1, 2, 3, 4]
        CentralManager.rearrangeInManualSortRequested(data.id, data.x, data.y)
        compare(Array.prototype.slice.call(model.manualSortOrder), data.order)
    }
}
