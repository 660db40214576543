import QtQuick 2.15
import "../Utils.js" as Utils

// The keyboard on a column of things beside a text: one stop for Tab, and from there the arrows go from one to the next.
// A row that its model has only announced isn't seen, and no place to go to.
QtObject {
    id: root

    property Item bar: null
    property Repeater repeater: null
    // Where an item has the id of its record.
    property string idField
    // What has the keyboard, or null.
    property Item current: null
    property int shownCount: 0
    property int __index: 0

    signal reached(Item item)
    // By Return, Delete and the menu key.
    signal entered(Item item)
    signal removed(Item item)
    signal menuRequested(Item item)
    // The keyboard goes back to the text.
    signal left()

    function __items() {
        var items = []
        for (var i = 0; i < repeater.count; ++i) {
            var item = repeater.itemAt(i)
            if (item && item[idField] > 0)
                items.push(item)
        }
        return items
    }

    function __goTo(index) {
        var items = __items()
        shownCount = items.length
        __index = Math.max(0, Math.min(index, shownCount - 1))
        current = items[__index] || null
        if (current)
            reached(current)
        else
            left()
    }

    function handle(event) {
        if (!current)
            return
        event.accepted = true
        var next = Utils.indexAfterKey(event.key, __index, shownCount)
        if (next >= 0)
            __goTo(next)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            entered(current)
        else if (event.key === Qt.Key_Delete && CentralManager.canMutate)
            removed(current)
        else if (event.key === Qt.Key_Escape)
            left()
        else if (Utils.asksForMenu(event))
            menuRequested(current)
        else
            event.accepted = false
    }

    property Timer __counting: Timer {
        interval: 0
        onTriggered: {
            if (root.bar.activeFocus)
                root.__goTo(root.__index)
            else
                root.shownCount = root.__items().length
        }
    }

    property Connections __rows: Connections {
        target: root.repeater
        function onItemAdded() { root.__counting.restart() }
        function onItemRemoved() { root.__counting.restart() }
    }

    property Connections __focus: Connections {
        target: root.bar
        function onActiveFocusChanged() {
            if (root.bar.activeFocus)
                root.__goTo(root.__index)
            else
                root.current = null
        }
    }
}
