import QtQuick 2.15
import QtQuick.Controls 1.4

// A menu in the colours of the theme.
Menu {
    id: root

    style: Component { ThemedMenuStyle {} }

    // Below the item that it belongs to, wherever the mouse is.
    function popupBelow(item) {
        __visualItem = item
        __popup(Qt.rect(0, item.height, 0, 0), -1)
    }
}
