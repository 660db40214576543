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
    // What a quote is taken to be high before it was drawn: as high as the last one that was.
    property real __likelyHeight: Units.dp(110)
    property var __drawn: []
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
                var end = separator !== undefined ? separator : "\n\n-- " + items[i].sourceTitle + " --\n\n"
                text = items[i].selectedText() + end + text
            }
        }
        return text
    }

    // The first quote that reaches below the height: they stand below one another.
    function __firstBelow(height) {
        var from = 0
        var to = count
        while (from < to) {
            var middle = Math.floor((from + to) / 2)
            var item = itemAt(middle)
            if (item && item.y + item.height < height)
                from = middle + 1
            else
                to = middle
        }
        return from
    }

    // Draws what is in sight or one height of the view away from it, and lets go of the rest.
    function __draw() {
        if (!view)
            return
        var drawn = []
        var bottom = view.contentY + 2 * view.height
        for (var i = __firstBelow(view.contentY - view.height); i < count; ++i) {
            var item = itemAt(i)
            if (!item || item.y > bottom)
                break
            item.active = true
            drawn.push(item)
        }
        __drawn.forEach(function(old) {
            if (old && drawn.indexOf(old) < 0) {
                // What is half made can't be let go of.
                if (old.kept || old.status === Loader.Loading)
                    drawn.push(old)
                else
                    old.active = false
            }
        })
        __drawn = drawn
        for (; __placed < count; ++__placed) {
            var placed = itemAt(__placed)
            if (placed && !placed.active)
                placed.complete()
        }
    }

    onItemRemoved: {
        if (item.counted)
            completedComponents -= 1
        __drawn = __drawn.filter(function(other) { return other !== item })
        __placed = Math.min(__placed, index)
        Qt.callLater(__noteSelection)
    }
    onCountChanged: _drawing.start()

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

        property bool counted: false
        // All of it is to be selected as soon as it is drawn.
        property bool wholeSelected: false
        property real __knownHeight: root.__likelyHeight
        readonly property var passage: modelData
        readonly property bool __ready: !!item && item.textReady
        readonly property bool hasSelectedText: __ready ? item.hasSelectedText : wholeSelected
        readonly property bool allSelected: __ready ? item.allSelected : wholeSelected
        readonly property string sourceTitle: passage && passage.sourceTitle ? passage.sourceTitle : ""
        // It holds what could not be had again.
        readonly property bool kept: !!item && (item.extended || item.hasSelectedText && !item.allSelected
                                                || item.holdsFocus)

        function complete() {
            if (!counted) {
                counted = true
                root.completedComponents += 1
            }
        }

        function select(all) {
            wholeSelected = all
            if (__ready && all)
                item.selectAll()
            else if (item)
                item.deselect()
        }

        function selectedText() {
            return __ready ? item.selectedText : appHelper.plainText(root.textOf(passage))
        }

        active: false
        asynchronous: true
        width: parent ? parent.width : 0
        height: item ? item.implicitHeight : __knownHeight
        sourceComponent: root.quote
        onHasSelectedTextChanged: Qt.callLater(root.__noteSelection)
        onAllSelectedChanged: Qt.callLater(root.__noteSelection)
        onLoaded: {
            item.passage = Qt.binding(function() { return _loader.passage })
            complete()
        }
        onHeightChanged: {
            if (!item || height === __knownHeight)
                return
            // What is read must not move when something above it finds its height.
            if (root.view && !root.view.moving && y + __knownHeight <= root.view.contentY)
                root.view.contentY += height - __knownHeight
            __knownHeight = height
            root.__likelyHeight = height
        }

        Connections {
            target: _loader.item
            ignoreUnknownSignals: true
            function onTextReadyChanged() {
                if (_loader.wholeSelected)
                    _loader.item.selectAll()
            }
            function onSelectionChanged() {
                if (_loader.__ready)
                    _loader.wholeSelected = _loader.item.allSelected
            }
        }
    }
}
