import QtQuick 2.15
import QtQml 2.15
import "../../Components"

// A top-level kerno with the ring of its children.
Item {
    id: root

    property var dataSource: null
    property int rowIndex: -1
    property int rowCount: 0
    property Item mouseArea: null
    property Item dropArea: null
    property real canvasScale: 1
    property real canvasBaseScale: CentralManager.canvasBaseScale
    property alias forceAutoPosition: _bubble.forceAutoPosition
    property alias showNumberOfCodings: _bubble.showNumberOfCodings

    readonly property alias bubble: _bubble
    readonly property int kernoId: _bubble.kernoId
    readonly property point __autoposition: CentralManager.getAutoposition(rowIndex, rowCount)
    readonly property bool __underMouse: !!mouseArea && mouseArea.level0KernoId === kernoId
    readonly property bool __underDrag: !!dropArea && dropArea.level0KernoId === kernoId
    readonly property bool __isDropTarget: __underDrag && !dropArea.level1Kerno

    visible: !!dataSource && (dataSource.visible || krnFile.anyVisibleChildren(kernoId))

    Component.onDestruction: _ring.model = 0

    CirclePath {
        id: _ring
        bubble: _bubble
        expanded: root.__underMouse || root.__underDrag
        z: expanded && !_bubble.hovered ? 1 : 0
        delegate: CircleKernoLevel1Delegate {
            dataSource: model
            mouseArea: root.mouseArea
            dropArea: root.dropArea
        }
    }

    CircleParentKerno {
        id: _bubble
        level: 0
        ring: _ring
        dataSource: root.dataSource
        expanded: _ring.expanded
        hovered: (root.__underMouse && !root.mouseArea.level1Kerno) || root.__isDropTarget
        isDragging: !!root.mouseArea && root.mouseArea.dragging && root.mouseArea.drag.target === _bubble
        canvasXAuto: root.__autoposition.x
        canvasYAuto: root.__autoposition.y
        opacity: !isDragging && ((root.__underMouse && root.mouseArea.level1Kerno)
                                 || (root.__underDrag && root.dropArea.level1Kerno)) ? 0.1 : 1.0
    }

    // Let go during a drag; coming back at its end, they put a refused bubble back to its place.
    Binding {
        target: _bubble
        property: "x"
        value: _bubble._canvasX * root.canvasBaseScale - _bubble.scaledR
        when: !_bubble.isDragging && !_bubble.manualPosition
        restoreMode: Binding.RestoreNone
    }
    Binding {
        target: _bubble
        property: "y"
        value: _bubble._canvasY * root.canvasBaseScale - _bubble.scaledR
        when: !_bubble.isDragging && !_bubble.manualPosition
        restoreMode: Binding.RestoreNone
    }

    states: [
        State {
            name: "dragging"
            when: _bubble.isDragging
            PropertyChanges { target: root; z: 2; opacity: 0.5 }
        },
        State {
            name: "circleDropActive"
            when: root.__isDropTarget && root.dropArea.containsCircleDrag
                  && root.dropArea.takesKerno(root.dropArea.draggedKernoId, _bubble)
            PropertyChanges { target: root; z: 1 }
            PropertyChanges { target: _bubble; background: "grey" }
        },
        State {
            name: "textDragActive"
            when: root.__isDropTarget && root.dropArea.containsTextDrag && CentralManager.canMutate
            PropertyChanges { target: root; z: 1 }
            PropertyChanges { target: _bubble; background: "grey" }
        },
        State {
            name: "mouseOver"
            when: root.__underMouse
            PropertyChanges { target: root; z: 2 }
        },
        State {
            name: "expanded"
            when: root.__underDrag
            PropertyChanges { target: root; z: 1 }
        }
    ]
}
