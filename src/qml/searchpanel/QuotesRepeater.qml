import QtQuick 2.15
import "../Components"

// Draws the quotes of a list one after another, so that a long list does not stop the window. What is selected in them
// can be taken all at once. `quote` draws one; it is given its `passage`.
CustomRepeater {
    id: root

    property Component quote: null
    property int completedComponents: 0
    readonly property bool allComponentsLoaded: completedComponents === count
    property var itemsWithSelectedText: []
    readonly property bool allSelected: count > 0 && itemsWithSelectedText.length === count
                                        && itemsWithSelectedText.every(function(item) { return item.allSelected })

    function __quotes() {
        return allItems.map(function(loader) { return loader.item }).filter(function(item) { return !!item })
    }

    function __noteSelection() {
        itemsWithSelectedText = __quotes().filter(function(item) { return item.hasSelectedText })
    }

    function selectAll() {
        __quotes().forEach(function(item) { item.selectAll() })
    }

    function deselectAll() {
        __quotes().forEach(function(item) { item.deselect() })
    }

    // What is selected, in the order of the quotes. Each part is followed by the separator, which names its source if
    // none is given.
    function getSelectedText(separator) {
        var text = ""
        var items = __quotes()
        for (var i = items.length - 1; i >= 0; --i) {
            if (items[i].hasSelectedText) {
                var end = separator !== undefined ? separator : "\n\n-- " + items[i].sourceTitle + " --\n\n"
                text = items[i].selectedText + end + text
            }
        }
        return text
    }

    onItemRemoved: {
        if (item.counted)
            completedComponents -= 1
        __noteSelection()
    }

    Loader {
        id: _loader

        property bool counted: false
        readonly property var passage: modelData

        asynchronous: true
        width: parent ? parent.width : 0
        sourceComponent: root.quote
        onLoaded: {
            item.passage = Qt.binding(function() { return _loader.passage })
            counted = true
            root.completedComponents += 1
        }

        Connections {
            target: _loader.item
            ignoreUnknownSignals: true
            function onSelectionChanged() { root.__noteSelection() }
        }
    }
}
