import QtQuick 2.15
import "../../Components"
import "../CircleKerno/KernoHitTest.js" as HitTest

// The mouse over the bubbles of a view, none of which can be moved.
MouseArea {
    id: root

    property Item content: null
    // The bubble under the mouse.
    property Item kerno: null
    readonly property int kernoId: kerno ? kerno.kernoId : -1

    signal bubbleClicked(Item bubble)
    signal bubbleDoubleClicked(Item bubble)
    signal menuRequested(Item bubble)

    function __bubbleAt(mouse) {
        return HitTest.getKernosBelowCursor(root, mouse, [], content, 0, "kerno")[0] || null
    }

    hoverEnabled: true
    acceptedButtons: Qt.LeftButton | Qt.RightButton

    onPositionChanged: kerno = __bubbleAt(mouse)
    onExited: kerno = null
    onPressed: (__bubbleAt(mouse) || root).forceActiveFocus()
    onClicked: {
        var bubble = __bubbleAt(mouse)
        if (!bubble)
            CentralManager.unhandledMouseClick(mouse)
        else if (mouse.button === Qt.RightButton)
            menuRequested(bubble)
        else
            bubbleClicked(bubble)
    }
    onDoubleClicked: {
        var bubble = __bubbleAt(mouse)
        if (bubble && mouse.button === Qt.LeftButton)
            bubbleDoubleClicked(bubble)
    }
}
