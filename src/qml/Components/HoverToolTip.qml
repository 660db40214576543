import QtQuick 2.15
import QtQuick.Controls.Private 1.0 as Private
import "."

// Tells what the parent is for when the mouse rests on it.
Timer {
    id: root

    property string text
    property bool shown: false
    property Item anchorItem

    interval: 700
    running: shown && text !== ""
    onTriggered: Private.Tooltip.showText(anchorItem, Qt.point(anchorItem.width / 2, anchorItem.height), text)
    onShownChanged: {
        if (!shown)
            Private.Tooltip.hideText()
    }
}
