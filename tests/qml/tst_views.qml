import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/Components/Quarter.js" as Quarter
import "qrc:/qml/Kerno/TreeViewKerno/TreeGeometry.js" as Tree
import "qrc:/qml/Kerno/Views/ViewGeometry.js" as Geometry
import "qrc:/qml/searchpanel"

// Where things stand in the views of kernos, and their quotes.
Item {
    id: test
    width: 500
    height: 400

    TextDragItem { id: symbol }

    PartialAnswersPanel {
        id: panel
        anchors.fill: parent
        dragItem: symbol
    }

    TestCase {
        name: "Views"
        when: windowShown

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
                { tag: "alone, with overlaps", overlaps: [3], angles: [30], radii: [[50, 50]], degrees: [30] },
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
                { tag: "all as much", overlaps: [4, 4, 4], drawn: [4] },
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
                fuzzyCompare(Math.atan(x / y), Math.PI / 12, 0.01)
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

        function test_quarters() {
            compare([Quarter.quarter(1, 1, 10, 20), Quarter.quarter(5, 1, 10, 20), Quarter.quarter(9, 10, 10, 20),
                     Quarter.quarter(4, 19, 10, 20)], [1, 2, 3, 4])
        }

        function test_treeLineEndsAtTheLastRowSeen() {
            var first = { y: 0, visible: true, middle: 10 }
            var hidden = { y: 22, visible: false, middle: 10 }
            var repeater = { y: 90, visible: true }
            compare(Tree.lineEnd([repeater]), 0)
            compare(Tree.lineEnd([first, { y: 22, visible: true, middle: 12 }, repeater]), 34)
            compare(Tree.lineEnd([first, hidden, repeater]), 10)
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

        // Quotes

        readonly property string whole: "0123456789".repeat(60)

        function quote(offset, length) {
            return { sourceId: 3, questionId: 2, offset: offset, answer: whole.substr(offset, length),
                     question: "", sourceTitle: "Marta" }
        }

        function show(quotes) {
            krnFile.wholeAnswer = whole
            panel.resetModel()
            panel.partialAnswers = quotes
            tryVerify(function() { return panel.quotes.allComponentsLoaded && panel.quotes.count === quotes.length })
            return quotes.map(function(quote, index) { return panel.quotes.itemAt(index).item })
        }

        function textOf(item) {
            var text = findChild(item, "answerText")
            return text.getText(0, text.length)
        }

        function press(item, tooltip) {
            var button = findWith(item, "tooltip", tooltip)
            verify(button, tooltip)
            mouseClick(button)
            return button
        }

        function findWith(item, property, value) {
            for (var i = 0; i < item.children.length; ++i) {
                var found = item.children[i][property] === value ? item.children[i]
                                                                 : findWith(item.children[i], property, value)
                if (found)
                    return found
            }
            return null
        }

        // Before: by the length, but by 20 at least and 300 at most. After: by 80, until there is nothing more.
        function test_readingOn_data() {
            return [
                { tag: "short", offset: 100, length: 5, before: [80, 25], after: [100, 85], more: true },
                { tag: "longer", offset: 100, length: 50, before: [50, 100], after: [100, 130], more: true },
                { tag: "near the start", offset: 10, length: 50, before: [0, 60], after: [10, 130], more: true },
                { tag: "to the end", offset: 590, length: 10, before: [570, 30], after: [590, 10], more: false }
            ]
        }
        function test_readingOn(data) {
            var item = show([quote(data.offset, data.length)])[0]
            tryVerify(function() { return textOf(item).length === data.length })
            var after = press(item, "Load more after")
            tryVerify(function() { return textOf(item) === whole.substr(data.after[0], data.after[1]) })
            compare(after.enabled, data.more)

            item = show([quote(data.offset, data.length)])[0]
            tryVerify(function() { return textOf(item).length === data.length })
            var before = press(item, "Load more before")
            tryVerify(function() { return textOf(item) === whole.substr(data.before[0], data.before[1]) })
            compare(before.enabled, data.before[0] > 0)
            // What is taken up from it counts from the beginning of the whole answer.
            var text = findChild(item, "answerText")
            text.select(2, 7)
            tryVerify(function() { return item.hasSelectedText })
            var at = text.positionToRectangle(5)
            mousePress(text, at.x, at.y + at.height / 2)
            mouseMove(text, at.x + 20, at.y + 20, -1, Qt.LeftButton)
            mouseRelease(text, at.x + 20, at.y + 20)
            compare([symbol.start, symbol.length, symbol.sourceId, symbol.questionId], [data.before[0] + 2, 5, 3, 2])
        }

        function test_batchesFollowOneAnother() {
            var many = []
            for (var i = 0; i < 45; ++i)
                many.push(quote(i, 5))
            krnFile.wholeAnswer = whole
            panel.resetModel()
            panel.partialAnswers = many
            compare(panel.quotes.count, 20)
            tryVerify(function() { return panel.quotes.count === 45 && panel.quotes.allComponentsLoaded })
        }

        function test_quotesGoWhenTheirPlacesMayHaveChanged() {
            verify(findWith(panel, "text", "No Quotes to Display"))
            show([quote(0, 5)])
            verify(!findWith(panel, "text", "No Quotes to Display").visible)
            CentralManager.notifyStructuredQuestionChanged(2, 3)
            compare(panel.quotes.count, 0)
            verify(findWith(panel, "text", "No Quotes to Display").visible)
        }

        // Far more than fit: they keep their places, and what is selected in them is known all the same.
        function test_onlyWhatIsInSightIsDrawn() {
            var places = []
            for (var i = 0; i < 60; ++i)
                places.push(i)
            show(places.map(function(place) { return quote(10 * place, 10) }))
            var quotes = panel.quotes
            var drawn = function() { return places.filter(function(place) { return !!quotes.itemAt(place).item }) }
            verify(drawn().length > 0 && drawn().length < 40)
            quotes.selectAll()
            tryVerify(function() { return quotes.allSelected })
            compare(quotes.getSelectedText(""), whole)
            var view = findChild(panel, "quotesView")
            view.contentY = view.contentHeight - view.height
            tryVerify(function() { return drawn().indexOf(59) >= 0 && drawn().indexOf(0) < 0 })
            compare(quotes.getSelectedText(""), whole)
            quotes.deselectAll()
            compare(quotes.getSelectedText(""), "")
        }

        function test_takingFromSeveral() {
            var items = show([quote(0, 5), quote(10, 5), quote(20, 5)])
            tryVerify(function() { return items.every(function(item) { return textOf(item).length === 5 }) })
            findChild(items[2], "answerText").select(0, 2)
            findChild(items[0], "answerText").select(0, 3)
            tryVerify(function() { return panel.quotes.itemsWithSelectedText.length === 2 })
            compare(panel.quotes.getSelectedText(), "012\n\n-- Marta --\n\n01\n\n-- Marta --\n\n")
            compare(panel.quotes.getSelectedText("|"), "012|01|")
            panel.quotes.selectAll()
            tryCompare(panel.quotes, "allSelected", true)
            panel.quotes.deselectAll()
            tryCompare(panel.quotes, "allSelected", false)
            compare(panel.quotes.getSelectedText(), "")
        }
    }
}
