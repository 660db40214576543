import QtQuick 2.15
import "../../Components"
import "../../Utils.js" as Utils
import "KernoHitTest.js" as HitTest

// Bubbles and passages that are dragged over the canvas. A dragged item opens rings at once.
DropArea {
    id: root

    property Item canvas: null
    property Item mouseArea: null
    property Item newKernoButton: null
    property bool overNewKernoButton: false

    readonly property alias level0Kerno: _levels.level0Kerno
    readonly property alias level1Kerno: _levels.level1Kerno
    readonly property alias level2Kerno: _levels.level2Kerno
    readonly property alias level0KernoId: _levels.level0KernoId
    readonly property alias level1KernoId: _levels.level1KernoId
    readonly property alias level2KernoId: _levels.level2KernoId
    property bool containsCircleDrag: false
    property bool containsTextDrag: false
    readonly property int draggedKernoId: containsCircleDrag && drag.source ? drag.source.kernoId : -1

    keys: ["kerno", "text"]

    Binding {
        target: root.newKernoButton
        property: "dropHovered"
        value: root.overNewKernoButton
    }

    function __hasKey(source, key) {
        return source.Drag.keys.indexOf(key) >= 0
    }

    function __leave() {
        containsCircleDrag = false
        containsTextDrag = false
        overNewKernoButton = false
    }

    // A child on free canvas becomes top-level where it was dropped.
    function __detach(source, drop) {
        source.state = "destroyed"
        var position = mapToItem(canvas, drop.x, drop.y)
        var newX = position.x / CentralManager.canvasBaseScale
        var newY = position.y / CentralManager.canvasBaseScale
        if (!canvas.holds(newX, newY))
            return
        var kerno = krnFile.kerno(source.kernoId)
        kerno.parentKernoId = -1
        kerno.x = Math.round(newX)
        kerno.y = Math.round(newY)
        undoManager.updateKerno(kerno)
    }

    // Whether the dragged kerno may become a child of the bubble. The canvas draws three levels, and a kerno on a
    // fourth would be gone.
    function takesKerno(kernoId, target) {
        return CentralManager.canMutate && target.level < 2 && krnFile.canReparent(kernoId, target.kernoId)
    }

    // Whether a drop of what is dragged would be taken by the bubble.
    function takesDrag(target) {
        return containsTextDrag ? CentralManager.canMutate : containsCircleDrag && takesKerno(draggedKernoId, target)
    }

    function __reparent(source, target) {
        source.state = "destroyed"
        if (!takesKerno(source.kernoId, target)) {
            if (CentralManager.canMutate)
                CentralManager.tell(qsTr("The kerno can't go there: kernos nest in three levels only."))
            return
        }
        var kerno = krnFile.kerno(source.kernoId)
        kerno.parentKernoId = target.kernoId
        undoManager.updateKerno(kerno)
    }

    function __code(source, target) {
        if (!CentralManager.canMutate)
            return
        var highlight = Utils.fillPassage(instantiator.highlight(), source)
        highlight.kernoId = target.kernoId
        undoManager.addHighlight(highlight)
    }

    onEntered: {
        containsCircleDrag = __hasKey(drag.source, "kerno")
        containsTextDrag = __hasKey(drag.source, "text")
    }
    onExited: {
        __leave()
        _levels.clear()
    }
    onPositionChanged: {
        overNewKernoButton = containsTextDrag && !!newKernoButton && HitTest.contains(root, drag, newKernoButton)
        if (overNewKernoButton)
            return
        if (level0Kerno) {
            _levels.follow(drag, true)
            return
        }
        // The bubble that is being dragged is no target of its own.
        var below = _levels.kernosAt(drag, canvas, 0).filter(function(kerno) {
            return !root.mouseArea || !root.mouseArea.dragging || kerno.kernoId !== root.mouseArea.level0KernoId
        })
        if (below.length > 0)
            _levels.takeLevel0(below[0])
    }
    onDropped: {
        var source = drop.source
        var target = _levels.topLevelKerno()
        if (overNewKernoButton)
            newKernoButton.codeIntoNewKerno(source)
        else if (!target && __hasKey(source, "reparent"))
            __detach(source, drop)
        else if (target && __hasKey(source, "kerno"))
            __reparent(source, target)
        else if (target && __hasKey(source, "text"))
            __code(source, target)
        _levels.clear()
        __leave()
    }

    KernoLevels {
        id: _levels
        area: root
        canvas: root.canvas
    }
}
