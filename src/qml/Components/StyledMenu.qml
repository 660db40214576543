import QtQuick 2.15
import QtQuick.Controls 1.4

// A menu in the colours of the theme.
Menu {
    id: root

    style: Component { ThemedMenuStyle {} }

    // At a point of the item that it belongs to, wherever the mouse is.
    function popupAt(item, x, y) {
        __visualItem = item
        __popup(Qt.rect(x, y, 0, 0), -1)
    }

    function popupBelow(item) {
        popupAt(item, 0, item.height)
    }

    function popupOver(item) {
        popupAt(item, item.width / 2, item.height / 2)
    }
}
