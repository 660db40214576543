import QtQuick 2.15

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
        var row = repeater.itemAt(Math.max(0, Math.min(index, repeater.count - 1)))
        row.bubble.forceActiveFocus()
        moved(row)
    }

    // Does what the key asks for, while a bubble has the focus.
    function handle(event) {
        var row = repeater.itemAt(tabStop)
        if (!row || !row.activeFocus)
            return
        event.accepted = true
        switch (event.key) {
        case Qt.Key_Up:
        case Qt.Key_Left:
            __focusAt(current - 1)
            break
        case Qt.Key_Down:
        case Qt.Key_Right:
            __focusAt(current + 1)
            break
        case Qt.Key_Home:
            __focusAt(0)
            break
        case Qt.Key_End:
            __focusAt(repeater.count - 1)
            break
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            activated(row.bubble)
            break
        case Qt.Key_Menu:
            menuRequested(row.bubble)
            break
        default:
            event.accepted = false
        }
    }
}
