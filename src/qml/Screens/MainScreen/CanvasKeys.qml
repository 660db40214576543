import QtQuick 2.15
import "../../Components"
import "../../Kerno/CircleKerno"
import "../../Utils.js" as Utils

// The keyboard on the canvas: one stop for Tab, and from there the arrows go from bubble to bubble.
Item {
    id: root

    property Item canvas: null
    property int __kernoId: -1
    property Item __bubble: null

    signal editRequested(int kernoId)

    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: __bubble ? qsTr("Kernos: %1").arg(__bubble.title) : qsTr("Kernos")
    Accessible.focusable: true

    // The bubbles of the top level that are drawn.
    function __bubbles(item, found) {
        for (var i = 0; i < item.visibleChildren.length; ++i) {
            var child = item.visibleChildren[i]
            if (child.type === "kerno" && child.level === 0)
                found.push(child)
            else if (child.level === undefined)
                __bubbles(child, found)
        }
        return found
    }

    function __centre(bubble) {
        return bubble.mapToItem(root, bubble.width / 2, bubble.height / 2)
    }

    // Of the bubbles that lie more in that direction than across it the nearest; without one the focus stays.
    function __next(from, dx, dy) {
        var start = __centre(from)
        var best = null
        var least = Infinity
        __bubbles(canvas, []).forEach(function(bubble) {
            var centre = __centre(bubble)
            var along = (centre.x - start.x) * dx + (centre.y - start.y) * dy
            var across = Math.abs((centre.x - start.x) * dy) + Math.abs((centre.y - start.y) * dx)
            if (bubble !== from && along > 0 && along >= across && along + 2 * across < least) {
                least = along + 2 * across
                best = bubble
            }
        })
        return best
    }

    function __take(bubble) {
        __bubble = bubble
        __kernoId = bubble ? bubble.kernoId : -1
        if (bubble)
            __place()
    }

    function __place() {
        var radius = __bubble.width / 2 * __bubble.scale + Units.dp(5)
        var centre = __centre(__bubble)
        _ring.width = 2 * radius
        _ring.x = centre.x - radius
        _ring.y = centre.y - radius
    }

    // Bubbles are made anew when their order changes.
    function __current() {
        var bubbles = __bubbles(canvas, [])
        var same = bubbles.filter(function(bubble) { return bubble.kernoId === root.__kernoId })
        __take(same[0] || bubbles[0] || null)
        return __bubble
    }

    // As a drag would, unless the program arranges the bubbles.
    function __move(bubble, dx, dy) {
        var kerno = krnFile.kerno(bubble.kernoId)
        kerno.x += dx
        kerno.y += dy
        if (!CentralManager.autoArrangeKernos && canvas.flickableContent.holds(kerno.x, kerno.y))
            undoManager.updateKerno(kerno)
    }

    onActiveFocusChanged: if (activeFocus) __current()
    Keys.onPressed: {
        var bubble = __current()
        if (!bubble)
            return
        var ways = {}
        ways[Qt.Key_Left] = [-1, 0]
        ways[Qt.Key_Right] = [1, 0]
        ways[Qt.Key_Up] = [0, -1]
        ways[Qt.Key_Down] = [0, 1]
        event.accepted = true
        var way = ways[event.key]
        if (way && event.modifiers === Qt.ControlModifier)
            __move(bubble, 10 * way[0], 10 * way[1])
        else if (way)
            __take(__next(bubble, way[0], way[1]) || bubble)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            CentralManager.showHierarchyViewForKerno = bubble.kernoId
        else if (Utils.asksForMenu(event))
            _menu.show(bubble)
        else if (event.key === Qt.Key_F2)
            editRequested(bubble.kernoId)
        else
            event.accepted = false
    }

    KernoContextMenu { id: _menu }

    // The bubble may move or grow.
    Timer {
        interval: 100
        repeat: true
        running: root.activeFocus
        onTriggered: root.__current()
    }

    FocusRing {
        visible: root.activeFocus && !root.__bubble
        anchors.margins: 1
    }
    Rectangle {
        id: _ring
        height: width
        radius: width / 2
        color: "transparent"
        visible: root.activeFocus && !!root.__bubble
        border { width: Units.dp(3); color: ApplicationStyle.focus_color }
    }
}
