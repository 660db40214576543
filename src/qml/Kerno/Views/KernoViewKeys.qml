import QtQuick 2.15
import "../../Utils.js" as Utils

// The way of the arrow keys over the bubbles of a view. `repeater` has an item with a `bubble` for each row; Tab stops
// at the `current` one alone.
QtObject {
    id: root

    property Repeater repeater: null
    property int current: 0
    readonly property int tabStop: repeater ? Math.max(0, Math.min(current, repeater.count - 1)) : 0

    signal moved(Item row)
    signal activated(Item bubble)
    signal menuRequested(Item bubble)

    function __focusAt(index) {
        var row = repeater.itemAt(index)
        row.bubble.forceActiveFocus()
        moved(row)
    }

    // Does what the key asks for, while a bubble has the focus.
    function handle(event) {
        var row = repeater.itemAt(tabStop)
        if (!row || !row.activeFocus)
            return
        event.accepted = true
        var next = Utils.indexAfterKey(event.key, tabStop, repeater.count)
        if (next >= 0)
            __focusAt(next)
        else if ([Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space].indexOf(event.key) >= 0)
            activated(row.bubble)
        else if (Utils.asksForMenu(event))
            menuRequested(row.bubble)
        else
            event.accepted = false
    }
}
