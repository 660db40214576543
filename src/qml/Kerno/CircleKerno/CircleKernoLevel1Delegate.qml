import QtQuick 2.15
import "../../Components"

// A kerno on the ring of a top-level one, with the ring of its own children.
Item {
    id: root

    property var dataSource: null
    property Item mouseArea: null
    property Item dropArea: null

    readonly property int kernoId: _bubble.kernoId
    readonly property bool __underMouse: !!mouseArea && mouseArea.level1KernoId === kernoId
    readonly property bool __underDrag: !!dropArea && dropArea.level1KernoId === kernoId
    readonly property bool __isDropTarget: __underDrag && !dropArea.level2Kerno
    readonly property bool __takesDrop: __isDropTarget && dropArea.takesDrag(_bubble)
    readonly property bool __othersActive: (!!mouseArea && !!mouseArea.level1Kerno)
                                           || (!!dropArea && !!dropArea.level1Kerno)

    width: _bubble.width
    height: _bubble.height
    z: __takesDrop && dropArea.containsCircleDrag ? 1 : 0
    visible: !!dataSource && (dataSource.visible || krnFile.anyVisibleChildren(kernoId))

    CirclePath {
        id: _ring
        bubble: _bubble
        expanded: root.__underMouse || root.__underDrag
        opacity: expanded ? 1.0 : 0.0
        z: expanded && !_bubble.hovered ? 1 : 0
        delegate: CircleChildKerno {
            dataSource: model
            visible: !!model && model.visible
            hovered: (!!root.mouseArea && root.mouseArea.level2KernoId === kernoId)
                     || (!!root.dropArea && root.dropArea.level2KernoId === kernoId)
        }
    }

    CircleParentKerno {
        id: _bubble
        level: 1
        ring: _ring
        dataSource: root.dataSource
        expanded: _ring.expanded
        hovered: (root.__underMouse && !root.mouseArea.level2Kerno) || root.__isDropTarget
        greyed: root.__takesDrop
        opacity: !_ring.expanded && root.__othersActive ? 0.1 : 1.0
        onXChanged: x = 0
        onYChanged: y = 0
    }
}
