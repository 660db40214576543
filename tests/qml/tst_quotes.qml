import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/searchpanel"

// The quotes beside a view of kernos.
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
        name: "Quotes"
        when: windowShown

        readonly property string whole: "0123456789".repeat(60)

        function initTestCase() {
            verify(study.open())
            study.setSource(3, "Marta", whole)
        }

        function quote(offset, length) {
            return { sourceId: 3, questionId: 1, offset: offset, question: "", sourceTitle: "Marta",
                     answer: krnFile.partialAnswer(3, 1, offset, length).answer }
        }

        function show(quotes) {
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
            tryCompare(after, "enabled", data.more)

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
            compare([symbol.start, symbol.length, symbol.sourceId, symbol.questionId], [data.before[0] + 2, 5, 3, 1])
        }

        function test_quotesGoWhenTheirPlacesMayHaveChanged() {
            show([quote(0, 5)])
            CentralManager.notifyStructuredQuestionChanged(1, 3)
            compare(panel.quotes.count, 0)
            verify(findWith(panel, "text", "No Quotes to Display").visible)
        }

        // Far more than fit: they keep their places, and what is selected in them is known all the same.
        function test_onlyWhatIsInSightIsDrawn() {
            var places = []
            for (var i = 0; i < 60; ++i)
                places.push(i)
            panel.resetModel()
            panel.partialAnswers = places.map(function(place) { return quote(10 * place, 10) })
            compare(panel.quotes.count, 20)
            tryVerify(function() { return panel.quotes.count === 60 && panel.quotes.allComponentsLoaded })
            var quotes = panel.quotes
            var drawn = function() { return places.filter(function(place) { return !!quotes.itemAt(place).item }) }
            verify(drawn().length > 0 && drawn().length < 40)
            quotes.selectAll()
            tryVerify(function() { return quotes.allSelected })
            compare(quotes.getSelectedText(""), whole)
            tryCompare(quotes.itemAt(0).item, "opacity", 1)
            var view = findChild(panel, "quotesView")
            view.contentY = view.contentHeight - view.height
            tryVerify(function() { return drawn().indexOf(59) >= 0 && drawn().indexOf(0) < 0 })
            compare(quotes.getSelectedText(""), whole)
            // One that was seen stands at once when it comes back, and what comes in its place is another.
            view.contentY = 0
            tryVerify(function() { return drawn().indexOf(0) >= 0 })
            compare(quotes.itemAt(0).item.opacity, 1)
            panel.partialAnswers = places.map(function(place) { return quote(place, 5) })
            tryVerify(function() { return quotes.getSelectedText("") === "" })
        }
    }
}
