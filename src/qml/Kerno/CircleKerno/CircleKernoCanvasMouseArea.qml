import QtQuick 2.15
import "../../Components"

// The mouse on the canvas: what lies under it, the menus of bubbles, and dragging them.
MouseArea {
    id: root

    property Item canvas: null
    readonly property alias level0Kerno: _levels.level0Kerno
    readonly property alias level1Kerno: _levels.level1Kerno
    readonly property alias level2Kerno: _levels.level2Kerno
    readonly property alias level0KernoId: _levels.level0KernoId
    readonly property alias level1KernoId: _levels.level1KernoId
    readonly property alias level2KernoId: _levels.level2KernoId
    readonly property bool dragging: drag.active
    readonly property real maxKernoX: canvas ? canvas.width / CentralManager.canvasBaseScale : 0
    readonly property real maxKernoY: canvas ? canvas.height / CentralManager.canvasBaseScale : 0
    property int thresholdBeforeShowingLevel1: 500
    property bool menuOpen: _menu.opened

    property double __enteredAt: 0
    property var __draggedRow: null
    property int __doubleClickedId: -1

    hoverEnabled: true
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    propagateComposedEvents: true
    // Must hold before the press: an area that keeps the mouse only from then on never starts its drag.
    preventStealing: level0Kerno !== null
    drag.smoothed: false

    function topLevelKerno() {
        return _levels.topLevelKerno()
    }

    function getDragItem(mouse) {
        var kerno = topLevelKerno()
        if (mouse.buttons !== Qt.LeftButton || !kerno)
            return null
        if (kerno === level0Kerno)
            return kerno
        __draggedRow = kerno.dataSource
        _childDrag.draggedLevel = kerno.level
        var position = mapToItem(canvas, mouse.x, mouse.y)
        _childDrag.start = Qt.point(position.x - kerno.scaledR, position.y - kerno.scaledR)
        _childDrag.active = true
        return _childDrag.item
    }

    function __clearDragItem() {
        if (drag.target)
            drag.target.state = ""
        drag.target = null
        _childDrag.active = false
        __draggedRow = null
    }

    // Stores where the bubble has been dropped; out of bounds it goes back to its place.
    function __storePosition(bubble) {
        var newX = (bubble.x + bubble.scaledR) / CentralManager.canvasBaseScale
        var newY = (bubble.y + bubble.scaledR) / CentralManager.canvasBaseScale
        if (CentralManager.autoArrangeKernos) {
            if (canvas.manualOrder)
                CentralManager.rearrangeInManualSortRequested(bubble.kernoId, newX, newY)
        } else if (canvas.holds(newX, newY)) {
            var kerno = krnFile.kerno(bubble.kernoId)
            kerno.x = Math.round(newX)
            kerno.y = Math.round(newY)
            undoManager.updateKerno(kerno)
        }
    }

    onPositionChanged: {
        if (drag.target || menuOpen)
            return
        var below = _levels.kernosAt(mouse, canvas, 0)
        if (below.length > 0 && below[0] !== level0Kerno) {
            _levels.takeLevel0(below[0])
            __enteredAt = Date.now()
        } else {
            _levels.follow(mouse, Date.now() - __enteredAt >= thresholdBeforeShowingLevel1)
        }
    }
    onExited: {
        if (!drag.target && !menuOpen)
            _levels.clear()
    }
    onPressed: {
        forceActiveFocus()
        drag.target = getDragItem(mouse)
    }
    onPressAndHold: {
        if (!dragging)
            __clearDragItem()
    }
    onReleased: {
        var target = drag.target
        if (dragging && target)
            target.Drag.drop()
        if (target && target.state !== "destroyed" && dragging && target === level0Kerno && !_childDrag.active)
            __storePosition(target)
        __clearDragItem()
        // A pointer that is let go outside has left without a word, and its bubble stays open.
        if (!contains(Qt.point(mouse.x, mouse.y)))
            _levels.clear()
        // Not at the double click itself: an area that is hidden while it is pressed takes the next click for a part of
        // that one.
        if (__doubleClickedId > 0)
            CentralManager.showHierarchyViewForKerno = __doubleClickedId
        __doubleClickedId = -1
    }
    onCanceled: {
        __clearDragItem()
        __doubleClickedId = -1
        _levels.clear()
    }
    // Where the pointer is when a menu goes, its next move tells.
    onMenuOpenChanged: {
        if (!menuOpen)
            _levels.clear()
    }
    onClicked: {
        var kerno = topLevelKerno()
        if (mouse.button === Qt.RightButton && kerno)
            _menu.show(kerno)
        else if (!kerno)
            CentralManager.unhandledMouseClick(mouse)
    }

    onDoubleClicked: {
        var kerno = topLevelKerno()
        if (mouse.button === Qt.LeftButton && kerno)
            __doubleClickedId = kerno.kernoId
    }

    KernoLevels {
        id: _levels
        area: root
        canvas: root.canvas
    }

    KernoContextMenu { id: _menu }

    // The child that is being dragged out of its ring, in which its bubble stays.
    Loader {
        id: _childDrag

        property int draggedLevel: 1
        property point start

        parent: root.canvas
        active: false
        z: 10
        sourceComponent: CircleChildKerno {
            level: _childDrag.draggedLevel
            dataSource: root.__draggedRow
            isDragging: root.dragging && root.drag.target === this
            x: _childDrag.start.x
            y: _childDrag.start.y
            Drag.keys: ["circle", "kerno", "reparent"]
            opacity: 0
            Component.onCompleted: opacity = 1
            Behavior on opacity { NumberAnimation {} }
        }
    }

    GeneralKernoToolTip {
        id: _toolTip
        area: root
        suppressed: root.menuOpen || root.dragging || root.pressed
        kernoId: root.containsMouse && (root.level2Kerno || root.level1Kerno || root.level0Kerno)
                 ? root.topLevelKerno().kernoId : -1
    }
}
