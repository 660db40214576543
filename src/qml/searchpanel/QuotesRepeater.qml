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
    property bool allSelected: false
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
    // What draws quotes, but none now; and how many more of these are being made.
    property var __spare: []
    property int __making: 0
    property int __pass: 0
    property int __placed: 0

    function __quotes() {
        var quotes = []
        for (var i = 0; i < count; ++i) {
            if (itemAt(i))
                quotes.push(itemAt(i))
        }
        return quotes
    }

    function __noteSelection() {
        var quotes = __quotes()
        itemsWithSelectedText = quotes.filter(__hasSelectedText)
        allSelected = count > 0 && quotes.length === count && quotes.every(__isAllSelected)
    }

    function selectAll() {
        __quotes().forEach(function(quote) { __select(quote, true) })
        __noteSelection()
    }

    function deselectAll() {
        __quotes().forEach(function(quote) { __select(quote, false) })
        __noteSelection()
    }

    // What is selected, in the order of the quotes. Each part is followed by the separator, which names its source if
    // none is given.
    function getSelectedText(separator) {
        var text = ""
        var quotes = __quotes()
        for (var i = quotes.length - 1; i >= 0; --i) {
            if (__hasSelectedText(quotes[i])) {
                var end = separator !== undefined ? separator
                                                  : "\n\n-- " + (quotes[i].passage().sourceTitle || "") + " --\n\n\n"
                text = (__isReady(quotes[i]) ? quotes[i].item.selectedText
                                             : appHelper.plainText(root.textOf(quotes[i].passage()))) + end + text
            }
        }
        return text
    }

    function __isReady(quote) {
        return !!quote.item && quote.item.textReady
    }

    function __hasSelectedText(quote) {
        return __isReady(quote) ? quote.item.hasSelectedText : quote.wholeSelected
    }

    function __isAllSelected(quote) {
        return __isReady(quote) ? quote.item.allSelected : quote.wholeSelected
    }

    // It holds what could not be had again.
    function __isKept(quote) {
        var item = quote.item
        return !!item && (item.extended || item.hasSelectedText && !item.allSelected || item.holdsFocus)
    }

    function __select(quote, all) {
        quote.wholeSelected = all
        if (__isReady(quote) && all)
            quote.item.selectAll()
        else if (quote.item)
            quote.item.deselect()
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
        __drawn.forEach(function(quote) { quote.y = __tops[quote.place] })
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

    // Draws what is in sight or one height of the view away from it. What draws the rest serves other quotes again.
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
            var quote = itemAt(i)
            quote.pass = pass
            quote.y = __tops[i]
            drawn.push(quote)
        }
        __drawn.forEach(function(old) {
            if (old.pass !== pass && __isKept(old))
                drawn.push(old)
            else if (old.pass !== pass)
                __letGo(old)
        })
        __drawn = drawn
        __serve()
        for (; __placed < count; ++__placed) {
            if (__placed < first || __placed >= i)
                __complete(__placed)
        }
    }

    // Gives the quotes to be drawn something that draws them: those in sight first, and a few in each pass, because
    // each lays a text out. Who scrolls fast passes the others.
    function __serve() {
        var middle = view.contentY + view.height / 2
        var waiting = __drawn.filter(function(quote) { return !quote.item })
        waiting.sort(function(a, b) { return Math.abs(a.y - middle) - Math.abs(b.y - middle) })
        for (var i = 0; i < Math.min(waiting.length, 5) && __spare.length > 0; ++i)
            __take(waiting[i], __spare.pop())
        if (i < waiting.length && __spare.length > 0)
            _drawing.start()
        for (; __making < waiting.length - i - __spare.length; ++__making)
            __make()
    }

    function __make() {
        var incubator = quote.incubateObject(root, { visible: false })
        var made = function() {
            --root.__making
            root.__watch(incubator.object)
            root.__spare.push(incubator.object)
            root._drawing.start()
        }
        if (incubator.status === Component.Ready)
            Qt.callLater(made)
        else
            incubator.onStatusChanged = function(status) { if (status === Component.Ready) made() }
    }

    // Tells the quote that it draws at the time.
    function __watch(item) {
        item.width = Qt.binding(function() { return root.parent.width })
        var quoteNow = function() { return item.parent && item.parent.item === item ? item.parent : null }
        var noteHeight = function() {
            var quote = quoteNow()
            if (quote && item.textReady)
                root.__setHeight(quote.place, item.height)
        }
        item.heightChanged.connect(noteHeight)
        item.textReadyChanged.connect(noteHeight)
        item.textReadyChanged.connect(function() {
            var quote = quoteNow()
            if (quote && item.textReady && quote.wholeSelected)
                item.selectAll()
        })
        item.selectionChanged.connect(function() {
            var quote = quoteNow()
            if (quote && item.textReady)
                quote.wholeSelected = item.allSelected
            Qt.callLater(root.__noteSelection)
        })
        item.seenChanged.connect(function() {
            var quote = quoteNow()
            if (quote)
                quote.seen = item.seen
        })
    }

    function __take(quote, item) {
        item.parent = quote
        item.seen = quote.seen
        quote.item = item
        item.passage = quote.passage()
        item.visible = true
        __complete(quote.place)
    }

    function __letGo(quote) {
        var item = quote.item
        quote.item = null
        if (!item)
            return
        item.visible = false
        item.deselect()
        __spare.push(item)
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
        __drawn = __drawn.filter(function(quote) { return quote.place >= 0 && quote.place < count })
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
            root.__quotes().forEach(function(quote) {
                quote.wholeSelected = quote.seen = false
                if (quote.item)
                    quote.item.passage = quote.passage()
            })
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

    Item {
        id: _quote

        // What draws it, while it is near enough.
        property Item item: null
        // All of it is to be selected as soon as it is drawn.
        property bool wholeSelected: false
        property bool seen: false
        // The last pass of drawing that it was in.
        property int pass: 0
        readonly property int place: index

        function passage() {
            return modelData
        }

        Component.onDestruction: {
            if (root)
                root.__letGo(_quote)
        }
    }
}
