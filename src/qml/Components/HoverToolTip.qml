import QtQuick 2.15
import QtQuick.Controls.Private 1.0 as Private
import "."
import "../Utils.js" as Utils

// Tells what the parent is for when the mouse rests on it.
Timer {
    id: root

    property string text
    property bool shown: false
    property Item anchorItem
    // The note takes a text with a "<" for mark-up.
    readonly property string __plain: /[<&]/.test(text) ? "<span>%1</span>".arg(Utils.escaped(text)) : text

    interval: 700
    running: shown && text !== ""
    onTriggered: Private.Tooltip.showText(anchorItem, Qt.point(anchorItem.width / 2, anchorItem.height), __plain)
    onShownChanged: {
        if (!shown)
            Private.Tooltip.hideText()
    }
}
