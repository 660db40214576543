import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/Components/Quarter.js" as Quarter
import "qrc:/qml/Kerno/Models"
import "qrc:/qml/Kerno/TreeViewKerno/TreeGeometry.js" as Tree
import "qrc:/qml/Kerno/Views/ViewGeometry.js" as Geometry
import "qrc:/qml/Utils.js" as Utils

// Where things stand in the views of kernos, and in which order.
TestCase {
    name: "Geometry"

    KernosModel { id: model }

    function rows(overlaps, angles) {
        var most = Math.max.apply(null, overlaps)
        return overlaps.map(function(count, i) {
            return { kernoId: i + 1, overlaps: count, overlapFactor: most < 1 ? 0 : count / most,
                     angle: angles ? angles[i] : 30 }
        })
    }

    // A surface of 600 by 500 with bubbles of 50.
    function test_placesOnRings_data() {
        return [
            { tag: "alone, without overlaps", overlaps: [0], angles: [30], radii: [[250, 200]], degrees: [30] },
            { tag: "half as many", overlaps: [4, 2], angles: [30, 30], radii: [[50, 50], [150, 125]],
              degrees: [30, 60] },
            { tag: "three share a ring", overlaps: [1, 0, 0, 0], angles: [30, 120, 120, 120],
              radii: [[50, 50], [250, 200], [250, 200], [250, 200]], degrees: [30, 240, 0, 120] }
        ]
    }
    function test_placesOnRings(data) {
        var layout = Geometry.overlapLayout(rows(data.overlaps, data.angles), 600, 500, 50)
        data.overlaps.forEach(function(count, i) {
            var a = data.degrees[i] * Math.PI / 180
            var place = layout.places[i + 1]
            fuzzyCompare(place.x, 300 + data.radii[i][0] * Math.cos(a), 0.01)
            fuzzyCompare(place.y, 250 + data.radii[i][1] * Math.sin(a), 0.01)
        })
    }

    function test_rings_data() {
        return [
            { tag: "no kernos", overlaps: [], drawn: [] },
            { tag: "none overlaps", overlaps: [0, 0], drawn: [0] },
            { tag: "steps of a fifth", overlaps: [5, 4, 3, 2, 1, 0], drawn: [0, 1, 2, 3, 4, 5] },
            { tag: "within a fifth of the last", overlaps: [100, 85, 60, 59, 40, 21, 15, 5],
              drawn: [5, 40, 60, 85] }
        ]
    }
    function test_rings(data) {
        var rings = Geometry.overlapLayout(rows(data.overlaps), 600, 600, 50).rings
        compare(rings.map(function(ring) { return ring.overlaps }), data.drawn)
        // The number stands on its ring, left of the top.
        rings.forEach(function(ring) {
            var x = ring.label.x - 300
            var y = ring.label.y - 300
            verify(x < 0 && y < 0)
            fuzzyCompare(Math.sqrt(x * x + y * y), ring.r1, 0.01)
        })
    }

    function test_hierarchyRows_data() {
        return [
            { tag: "alone", index: 0, count: 1, scale: 0.7, height: 35, top: 0, from: 25, to: 25 },
            { tag: "first", index: 0, count: 3, scale: 1.5, height: 75, top: 0, from: 25, to: 75 },
            { tag: "between", index: 1, count: 3, scale: 1.5, height: 115, top: 32.5, from: 0, to: 115 },
            { tag: "last", index: 2, count: 3, scale: 0.7, height: 75, top: 12.5, from: 0, to: 37.5 }
        ]
    }
    function test_hierarchyRows(data) {
        var height = Geometry.rowHeight(data.index, 50, data.scale, 40)
        var line = Geometry.rowLine(data.index, data.count, height, 50)
        compare([height, Geometry.bubbleTop(data.index, height, 50), line.from, line.to],
                [data.height, data.top, data.from, data.to])
    }

    // A view of 200 on a content of 900.
    function test_scrolledToRow_data() {
        return [
            { tag: "above", y: 50, from: 300, to: 50 },
            { tag: "seen", y: 320, from: 300, to: 300 },
            { tag: "below, on a page", y: 640, from: 300, to: 600 },
            { tag: "across two pages", y: 570, from: 0, to: 430 },
            { tag: "at the end", y: 840, from: 0, to: 700 }
        ]
    }
    function test_scrolledToRow(data) {
        compare(Geometry.scrolledToRow(data.y, 60, data.from, 200, 900), data.to)
    }

    function test_treeLineEndsAtTheLastRowSeen() {
        var first = { y: 0, visible: true, middle: 10 }
        var hidden = { y: 22, visible: false, middle: 10 }
        var repeater = { y: 90, visible: true }
        compare(Tree.lineEnd([repeater]), 0)
        compare(Tree.lineEnd([first, { y: 22, visible: true, middle: 12 }, repeater]), 34)
        compare(Tree.lineEnd([first, hidden, repeater]), 10)
        compare([Quarter.quarter(1, 1, 10, 20), Quarter.quarter(5, 1, 10, 20), Quarter.quarter(9, 10, 10, 20),
                 Quarter.quarter(4, 19, 10, 20)], [1, 2, 3, 4])
    }

    function test_arrowsInTheTree_data() {
        return [
            { tag: "down", from: 1, key: Qt.Key_Down, to: 2 }, { tag: "up", from: 1, key: Qt.Key_Up, to: 0 },
            { tag: "past the end", from: 4, key: Qt.Key_Down, to: 4 },
            { tag: "right, to the same height", from: 1, key: Qt.Key_Right, to: 4 },
            { tag: "left, to the same height", from: 3, key: Qt.Key_Left, to: 0 },
            { tag: "no column there", from: 0, key: Qt.Key_Left, to: 0 },
            { tag: "end", from: 0, key: Qt.Key_End, to: 4 }, { tag: "home", from: 4, key: Qt.Key_Home, to: 0 }
        ]
    }
    function test_arrowsInTheTree(data) {
        // The second is a child; two columns.
        var places = [Qt.point(0, 0), Qt.point(15, 30), Qt.point(0, 60), Qt.point(222, 0), Qt.point(222, 30)]
        compare(Tree.neighbour(places, data.from, data.key, 222), data.to)
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
        // Three rows of five
        var seventh = CentralManager.getAutoposition(6, 13)
        compare([seventh.x, seventh.y], [126 + 56, 157.5 + 42])
    }

    function test_manualOrderIsRebuilt_data() {
        return [
            { tag: "new ones last", order: [3, 1], present: [1, 2, 3], result: [3, 1, 2] },
            { tag: "gone ones out", order: [4, 3, 1], present: [1, 3], result: [3, 1] },
            { tag: "from nothing", order: [], present: [2, 1], result: [2, 1] }
        ]
    }
    function test_manualOrderIsRebuilt(data) {
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

    function test_sortByIsStableAndPutsMissingKeysLast() {
        var rows = [{ k: 2, n: "a" }, { n: "b" }, { k: 1, n: "c" }, { k: 2, n: "d" }, { n: "e" }, { k: 1, n: "f" }]
        compare(Utils.sortBy(rows, "k").map(function(row) { return row.n }).join(""), "cfadbe")
        compare(rows[0].n, "a")
    }

    function test_pathsAndUrlsAgree() {
        ["/projects/night.krn", "/a b/c#1?.krn", "/ä/100%.krn"].forEach(function(path) {
            compare(Utils.filePathFromUrl(Utils.resolveUrlFromPath(path)), path)
        })
        compare([Utils.getFileName("/a.b/c.d.krn"), Utils.getFileName("/a.b/c.d.krn", false)], ["c.d.krn", "c.d"])
        compare(Utils.filled("By: %1 on %2", "50%2 %1", "today"), "By: 50%2 %1 on today")
    }
}
