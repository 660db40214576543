import QtQuick 2.15
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
    readonly property bool __auto: CentralManager.autoArrangeKernos || forceAutoPosition
    readonly property point __autoposition: __auto ? CentralManager.getAutoposition(rowIndex, rowCount) : Qt.point(0, 0)
    // The side of the part of the canvas that each bubble would have to itself.
    readonly property real __share: 1.2 * canvasBaseScale * Math.sqrt(
        CentralManager.canvasBaseWidth * CentralManager.canvasBaseHeight / Math.max(1, rowCount))
    readonly property bool __underMouse: !!mouseArea && mouseArea.level0KernoId === kernoId
    readonly property bool __underDrag: !!dropArea && dropArea.level0KernoId === kernoId
    readonly property bool __isDropTarget: __underDrag && !dropArea.level1Kerno
    readonly property bool __takesDrop: __isDropTarget && dropArea.takesDrag(_bubble)

    state: _bubble.isDragging ? "dragging"
         : __takesDrop ? (dropArea.containsTextDrag ? "textDragActive" : "circleDropActive")
         : __underMouse ? "mouseOver" : __underDrag ? "expanded" : ""
    z: state === "" ? 0 : _bubble.isDragging || (__underMouse && !__takesDrop) ? 2 : 1
    opacity: _bubble.isDragging ? 0.5 : 1.0
    visible: !!dataSource && (dataSource.visible || krnFile.anyVisibleChildren(kernoId))

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
        titleRoom: Math.max(2 * scaledR, Math.min(Units.dp(150), root.__share))
        canvasXAuto: root.__autoposition.x
        canvasYAuto: root.__autoposition.y
        greyed: root.__takesDrop && !isDragging
        opacity: !isDragging && ((root.__underMouse && root.mouseArea.level1Kerno)
                                 || (root.__underDrag && root.dropArea.level1Kerno)) ? 0.1 : 1.0
        x: __homeX
        y: __homeY

        readonly property real __homeX: _canvasX * root.canvasBaseScale - scaledR
        readonly property real __homeY: _canvasY * root.canvasBaseScale - scaledR

        // Let go during a drag; coming back at its end, they put a refused bubble back to its place.
        onIsDraggingChanged: {
            x = isDragging ? x : Qt.binding(function() { return __homeX })
            y = isDragging ? y : Qt.binding(function() { return __homeY })
        }
    }
}
