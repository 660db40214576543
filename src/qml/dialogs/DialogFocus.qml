import QtQuick 2.15
import QtQuick.Window 2.15

// Keeps the keyboard in a dialog while it is shown: Tab goes round in it, and not on to the screen behind its veil.
// What has the focus is scrolled into sight. What had it before gets it back at the end.
Item {
    id: root

    property Item dialog: null
    property bool shown: false
    readonly property bool isDialogFocus: true
    property Item __before: null
    property Item __last: null

    onShownChanged: {
        if (shown) {
            __before = Window.activeFocusItem
        } else if (__before) {
            if (__holds(dialog, Window.activeFocusItem))
                __before.forceActiveFocus()
            __before = null
        }
    }

    Connections {
        target: root.Window.window
        enabled: root.shown
        function onActiveFocusItemChanged() { root.__keep(target.activeFocusItem) }
    }

    function __holds(parent, item) {
        while (item && item !== parent)
            item = item.parent
        return !!item
    }

    // Another dialog may stand over this one, and takes the focus by right.
    function __isInDialog(item) {
        for (; item; item = item.parent) {
            for (var i = 0; i < item.data.length; ++i) {
                if (item.data[i].isDialogFocus)
                    return true
            }
        }
        return false
    }

    function __keep(item) {
        if (!shown || !item || !item.parent)
            return
        if (__holds(dialog, item)) {
            __last = item
            // Not before a list has placed a row that it has just made.
            Qt.callLater(__reveal, item)
        } else if (__last && !__isInDialog(item))
            Qt.callLater(__bringBack, __last, item)
    }

    // With the row of a list that it stands in. What is higher than its view, such as a long text, keeps its place.
    function __reveal(item) {
        for (var row = item; row && row !== dialog; row = row.parent) {
            var view = row.parent ? row.parent.parent : null
            if (!view || view.contentItem !== row.parent || view.contentY === undefined)
                continue
            var shown = row.height <= view.height ? row : item
            if (shown.height > view.height)
                continue
            var top = shown.mapToItem(view, 0, 0).y
            view.contentY += Math.min(0, top) + Math.max(0, top + shown.height - view.height)
        }
    }

    // Not before the focus has come to rest: a control hands it on to the field in it.
    function __bringBack(from, to) {
        if (!shown || __holds(dialog, Window.activeFocusItem))
            return
        var first = dialog.nextItemInFocusChain(true)
        if (!__holds(dialog, first))
            return
        if (__holds(from.nextItemInFocusChain(true), to))
            first.forceActiveFocus(Qt.TabFocusReason)
        else
            __lastFrom(first).forceActiveFocus(Qt.BacktabFocusReason)
    }

    function __lastFrom(item) {
        var next = item.nextItemInFocusChain(true)
        while (next && next !== item && __holds(dialog, next)) {
            item = next
            next = item.nextItemInFocusChain(true)
        }
        return item
    }
}
