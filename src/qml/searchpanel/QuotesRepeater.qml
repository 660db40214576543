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
    // From above the first quote to below the last.
    readonly property real columnHeight: _places.columnHeight
    property var __drawn: []
    property int __pass: 0

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

    function selectAll() { __selectAll(true) }
    function deselectAll() { __selectAll(false) }

    function __selectAll(all) {
        __quotes().forEach(function(quote) { __select(quote, all) })
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

    function __isReady(quote) { return !!quote.item && quote.item.textReady }

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

    // What is read must not move when something above it finds its height.
    function __layOut() {
        var read = view && !view.moving ? _places.placeAt(view.contentY) : -1
        var before = _places.topOf(read)
        _places.layOut()
        __drawn.forEach(function(quote) { quote.y = _places.topOf(quote.place) })
        var after = _places.topOf(read)
        if (before !== undefined && after !== undefined && view.contentY > 0)
            view.contentY += after - before
    }

    function __setHeight(place, height) {
        if (_places.setHeight(place, height))
            Qt.callLater(__layOut)
    }

    // Draws what is in sight or one height of the view away from it. What draws the rest serves other quotes again.
    function __draw() {
        if (!view)
            return
        if (_places.standing !== count)
            __layOut()
        var drawn = []
        var pass = ++__pass
        var bottom = view.contentY + 2 * view.height
        for (var i = _places.placeAt(view.contentY - view.height); i < count && _places.topOf(i) <= bottom; ++i) {
            var quote = itemAt(i)
            quote.pass = pass
            quote.y = _places.topOf(i)
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
    }

    // Gives the quotes to be drawn something that draws them: those in sight first, and a few in each pass, because
    // each lays a text out. Who scrolls fast passes the others.
    function __serve() {
        var middle = view.contentY + view.height / 2
        var waiting = __drawn.filter(function(quote) { return !quote.item })
        waiting.sort(function(a, b) { return Math.abs(a.y - middle) - Math.abs(b.y - middle) })
        var served = Math.min(waiting.length, _pool.spare, 5)
        for (var i = 0; i < served; ++i)
            __take(waiting[i])
        completedComponents = count - waiting.length + served
        if (served < waiting.length && _pool.spare > 0)
            _drawing.start()
        _pool.keep(waiting.length - served)
    }

    // What draws a quote tells of itself; it may draw none at the time.
    function __quoteOf(item) {
        return item.parent && item.parent.item === item ? item.parent : null
    }

    function __noteHeight(item) {
        var quote = __quoteOf(item)
        if (quote && item.textReady)
            __setHeight(quote.place, item.height)
    }

    function __noteText(item) {
        __noteHeight(item)
        if (item.textReady && __quoteOf(item) && item.parent.wholeSelected)
            item.selectAll()
    }

    function __noteSelectionIn(item) {
        var quote = __quoteOf(item)
        if (quote && item.textReady)
            quote.wholeSelected = item.allSelected
        Qt.callLater(__noteSelection)
    }

    function __noteSeen(item) {
        var quote = __quoteOf(item)
        if (quote)
            quote.seen = item.seen
    }

    function __take(quote) {
        var item = _pool.take()
        item.parent = quote
        item.seen = quote.seen
        quote.item = item
        item.passage = quote.passage()
        item.visible = true
    }

    function __letGo(quote) {
        var item = quote.item
        quote.item = null
        if (item)
            _pool.giveBack(item)
    }

    // Quotes come and go at the end of the list.
    onCountChanged: {
        completedComponents = Math.min(completedComponents, count)
        __drawn = __drawn.filter(function(quote) { return quote.place >= 0 && quote.place < count })
        _places.resize(count)
        if (itemsWithSelectedText.length > 0)
            Qt.callLater(__noteSelection)
        _drawing.start()
    }

    property QuotesPlaces _places: QuotesPlaces {}
    property QuotesPool _pool: QuotesPool {
        component: root.quote
        owner: root
        onMade: {
            item.width = Qt.binding(function() { return root.parent.width })
            item.heightChanged.connect(function() { root.__noteHeight(item) })
            item.textReadyChanged.connect(function() { root.__noteText(item) })
            item.selectionChanged.connect(function() { root.__noteSelectionIn(item) })
            item.seenChanged.connect(function() { root.__noteSeen(item) })
            root._drawing.start()
        }
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
