import QtQuick 2.15
import "../Components"

// The quotes of a list in a column that `view` scrolls. They are made one after another, and only around what is in
// sight, so that a list of thousands neither stops the window nor fills the memory; the others keep their places. What
// is selected in them can be taken all at once. `quote` draws one; it is given its `passage`.
Repeater {
    id: root

    property Component quote: null
    property Flickable view: null
    // The text of a passage that isn't drawn.
    property var textOf: function(passage) { return passage.answer }
    // Quotes that have come to stand: drawn, or known to be out of sight.
    property int completedComponents: 0
    readonly property bool allComponentsLoaded: completedComponents === count
    property var itemsWithSelectedText: []
    readonly property bool allSelected: count > 0 && itemsWithSelectedText.length === count
                                        && itemsWithSelectedText.every(function(item) { return item.allSelected })
    property real spacing: Units.dp(20)
    property real margin: ApplicationStyle.default_margin
    // From above the first quote to below the last.
    property real columnHeight: 0
    // What a quote is taken to be high before it was drawn: as high as the last one that was.
    property real __likelyHeight: Units.dp(110)
    // Of all quotes, whereas only those that are drawn are touched: a positioner would go over thousands of items, and
    // each that a script has met stays in its memory.
    property var __heights: []
    property var __tops: []
    property var __completed: []
    property var __drawn: []
    property int __pass: 0
    property int __placed: 0

    function __items() {
        var items = []
        for (var i = 0; i < count; ++i) {
            if (itemAt(i))
                items.push(itemAt(i))
        }
        return items
    }

    function __noteSelection() {
        itemsWithSelectedText = __items().filter(function(item) { return item.hasSelectedText })
    }

    function selectAll() {
        __items().forEach(function(item) { item.select(true) })
    }

    function deselectAll() {
        __items().forEach(function(item) { item.select(false) })
    }

    // What is selected, in the order of the quotes. Each part is followed by the separator, which names its source if
    // none is given.
    function getSelectedText(separator) {
        var text = ""
        var items = __items()
        for (var i = items.length - 1; i >= 0; --i) {
            if (items[i].hasSelectedText) {
                var end = separator !== undefined ? separator : "\n\n-- " + items[i].source() + " --\n\n\n"
                text = items[i].selectedText() + end + text
            }
        }
        return text
    }

    // The last quote that begins at the height or above it.
    function __placeAt(height) {
        var from = 0
        var to = __tops.length
        while (to - from > 1) {
            var middle = Math.floor((from + to) / 2)
            if (__tops[middle] <= height)
                from = middle
            else
                to = middle
        }
        return from
    }

    // What is read must not move when something above it finds its height.
    function __layOut() {
        var read = view && !view.moving ? __placeAt(view.contentY) : -1
        var before = __tops[read]
        var y = margin
        __tops = __heights.map(function(height) {
            var top = y
            y += height + spacing
            return top
        })
        columnHeight = count > 0 ? y - spacing + margin : 0
        __drawn.forEach(function(loader) { loader.y = __tops[loader.place] })
        if (before !== undefined && __tops[read] !== undefined && view.contentY > 0)
            view.contentY += __tops[read] - before
    }

    function __setHeight(place, height) {
        if (height <= 0 || __heights[place] === height)
            return
        __heights[place] = height
        __likelyHeight = height
        Qt.callLater(__layOut)
    }

    // Draws what is in sight or one height of the view away from it, and lets go of the rest.
    function __draw() {
        if (!view)
            return
        if (__tops.length !== count)
            __layOut()
        var drawn = []
        var pass = ++__pass
        var bottom = view.contentY + 2 * view.height
        var first = __placeAt(view.contentY - view.height)
        for (var i = first; i < count && __tops[i] <= bottom; ++i) {
            var loader = itemAt(i)
            loader.pass = pass
            loader.y = __tops[i]
            loader.active = true
            drawn.push(loader)
        }
        __drawn.forEach(function(old) {
            if (old.pass === pass)
                return
            // What is half made can't be let go of.
            if (old.isKept() || old.status === Loader.Loading)
                drawn.push(old)
            else
                old.active = false
        })
        __drawn = drawn
        for (; __placed < count; ++__placed) {
            if (__placed < first || __placed >= i)
                __complete(__placed)
        }
    }

    function __complete(place) {
        if (__completed[place])
            return
        __completed[place] = true
        completedComponents += 1
    }

    // Quotes come and go at the end of the list.
    onCountChanged: {
        var gone = __completed.splice(count).filter(function(completed) { return completed }).length
        completedComponents -= gone
        __placed = Math.min(__placed, count)
        __drawn = __drawn.filter(function(loader) { return loader.place >= 0 && loader.place < count })
        while (__heights.length < count)
            __heights.push(__likelyHeight)
        __heights.length = count
        if (gone > 0)
            Qt.callLater(__noteSelection)
        _drawing.start()
    }

    // Other quotes stand in the places of the former ones.
    property Connections _replacing: Connections {
        target: root.model
        function onDataChanged() {
            root.__items().forEach(function(item) { item.wholeSelected = item.seen = false })
        }
    }
    property Connections _scrolling: Connections {
        target: root.view
        function onContentYChanged() { root._drawing.start() }
        function onHeightChanged() { root._drawing.start() }
        function onContentHeightChanged() { root._drawing.start() }
    }
    property Timer _drawing: Timer {
        interval: 15
        onTriggered: root.__draw()
    }

    Loader {
        id: _loader

        // All of it is to be selected as soon as it is drawn.
        property bool wholeSelected: false
        property bool seen: false
        // The last pass of drawing that it was in.
        property int pass: 0
        readonly property int place: index
        // Only of those that are drawn: a script's memory of thousands is gone over again and again.
        readonly property var passage: active ? modelData : null
        readonly property bool __ready: !!item && item.textReady
        readonly property bool hasSelectedText: __ready ? item.hasSelectedText : wholeSelected
        readonly property bool allSelected: __ready ? item.allSelected : wholeSelected

        function source() {
            return modelData.sourceTitle || ""
        }

        // It holds what could not be had again.
        function isKept() {
            return !!item && (item.extended || item.hasSelectedText && !item.allSelected || item.holdsFocus)
        }

        function select(all) {
            wholeSelected = all
            if (__ready && all)
                item.selectAll()
            else if (item)
                item.deselect()
        }

        function __selectWhole() {
            if (wholeSelected)
                item.selectAll()
        }

        function __followSelection() {
            if (__ready)
                wholeSelected = item.allSelected
        }

        function selectedText() {
            return __ready ? item.selectedText : appHelper.plainText(root.textOf(modelData))
        }

        active: false
        asynchronous: true
        width: parent ? parent.width : 0
        sourceComponent: root.quote
        onHasSelectedTextChanged: Qt.callLater(root.__noteSelection)
        onAllSelectedChanged: Qt.callLater(root.__noteSelection)
        onLoaded: {
            item.seen = seen
            item.passage = Qt.binding(function() { return _loader.passage })
            item.seenChanged.connect(function() { seen = true })
            item.selectionChanged.connect(__followSelection)
            item.textReadyChanged.connect(__selectWhole)
            root.__complete(place)
        }
        onHeightChanged: root.__setHeight(place, height)
    }
}
