import QtQuick 2.15
import QtQuick.Window 2.15
import QtQuick.Controls 1.4

// F6 takes the keyboard on to the next part of the window, Shift+F6 back. `parts` are items in their reading order.
Item {
    id: root

    property var parts: []

    function __holds(part, item) {
        while (item && item !== part)
            item = item.parent
        return !!item
    }

    function __go(step) {
        if (CentralManager.overlayCount > 0)
            return
        var shown = parts.filter(function(part) { return part.visible && part.enabled })
        var focused = Window.activeFocusItem
        var index = shown.findIndex(function(part) { return __holds(part, focused) })
        for (var i = 1; i <= shown.length; ++i) {
            var part = shown[(index < 0 ? (step > 0 ? i - 1 : shown.length - i)
                                        : index + step * i + 2 * shown.length) % shown.length]
            var first = part.nextItemInFocusChain(true)
            if (__holds(part, first)) {
                first.forceActiveFocus(Qt.TabFocusReason)
                return
            }
        }
    }

    Action {
        shortcut: "F6"
        onTriggered: root.__go(1)
    }
    Action {
        shortcut: "Shift+F6"
        onTriggered: root.__go(-1)
    }
}
