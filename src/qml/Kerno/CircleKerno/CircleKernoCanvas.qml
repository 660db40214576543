import QtQuick 2.15
import QtQml 2.15
import QtQuick.Controls 1.4
import "../../Components"
import "../Models"

// The surface on which the kernos lie as bubbles.
Item {
    id: root

    property real canvasScale: 1
    property Item newKernoButton: null
    readonly property bool interactiveFlickable: !_mouseArea.dragging && !_dropArea.containsTextDrag
    readonly property alias canvasMouseArea: _mouseArea
    readonly property alias canvasDropArea: _dropArea
    readonly property alias flickableContent: _content

    signal kernoPressed(int kernoId)

    StyledScrollView {
        id: _scroll
        anchors.fill: parent

        Flickable {
            id: _flickable
            contentWidth: _canvas.width
            contentHeight: _canvas.height
            boundsBehavior: Flickable.StopAtBounds

            Item {
                id: _canvas
                objectName: "circleKernosCanvas"

                readonly property real canvasMargin: Units.dp(20)
                readonly property real minimumWidth: root.width - ApplicationStyle.scroll_bar_size
                readonly property real minimumHeight: root.height - ApplicationStyle.scroll_bar_size

                width: Math.max(minimumWidth, (_content.width + 2 * canvasMargin) * root.canvasScale)
                height: Math.max(minimumHeight, (_content.height + 2 * canvasMargin) * root.canvasScale)
                scale: root.canvasScale

                Item {
                    id: _content
                    objectName: "flickableContent"

                    readonly property bool manualOrder: _kernos.manualSort

                    // Whether the point, in canvas units, lies within the bounds for kernos.
                    function holds(x, y) {
                        return x >= 0 && y >= 0 && x <= _mouseArea.maxKernoX && y <= _mouseArea.maxKernoY
                    }

                    anchors.centerIn: parent
                    width: CentralManager.canvasBaseWidth * CentralManager.canvasBaseScale - 2 * _canvas.canvasMargin
                    height: CentralManager.canvasBaseHeight * CentralManager.canvasBaseScale - 2 * _canvas.canvasMargin

                    Repeater {
                        model: KernosModel { id: _kernos }

                        Loader {
                            id: _loader

                            property var row: model
                            property int rowIndex: index

                            asynchronous: true
                            z: item ? item.z : 0
                            sourceComponent: CircleKernoLevel0Delegate {
                                dataSource: _loader.row
                                rowIndex: _loader.rowIndex
                                rowCount: _kernos.count
                                mouseArea: _mouseArea
                                dropArea: _dropArea
                                canvasScale: root.canvasScale
                            }
                        }
                    }
                }

                CircleKernoCanvasMouseArea {
                    id: _mouseArea
                    anchors.fill: parent
                    canvas: _content
                }

                CircleKernoCanvasDropArea {
                    id: _dropArea
                    anchors.fill: parent
                    canvas: _content
                    mouseArea: _mouseArea
                    newKernoButton: root.newKernoButton
                }

                CanvasVeil {
                    anchors.fill: _content
                    dragging: _mouseArea.dragging
                    mouseArea: _mouseArea
                }

                // Tells the quick edit bar which kerno was pressed, and leaves the press to the areas below.
                MouseArea {
                    anchors.fill: parent
                    enabled: CentralManager.showKernoEditBar
                    onPressed: {
                        mouse.accepted = false
                        var kerno = _mouseArea.topLevelKerno()
                        if (kerno)
                            root.kernoPressed(kerno.kernoId)
                    }
                }
            }
        }
    }

    // The scroll view switches its flickable off once, so a plain binding would not hold.
    Binding {
        target: _flickable
        property: "interactive"
        value: root.interactiveFlickable && root.canvasScale > 1
        restoreMode: Binding.RestoreNone
    }

    Connections {
        target: krnFile

        // Brings a new bubble into view on an enlarged canvas.
        function onKernoAppeared(x, y) {
            if (root.canvasScale < 1.1 || CentralManager.showAsTreeView || CentralManager.autoArrangeKernos)
                return
            var offset = Units.dp(30) * root.canvasScale
            var factor = CentralManager.canvasBaseScale * root.canvasScale
            var contentX = root.__scrolledTo(x * factor, _flickable.contentX, _flickable.width,
                                             _flickable.contentWidth, offset)
            var contentY = root.__scrolledTo(y * factor, _flickable.contentY, _flickable.height,
                                             _flickable.contentHeight, offset)
            if (contentX === _flickable.contentX && contentY === _flickable.contentY)
                return
            _flickable.contentX = contentX
            _flickable.contentY = contentY
            _flickable.flick(300, 300)
        }
    }

    function __scrolledTo(position, scrolled, viewSize, contentSize, offset) {
        if (position >= scrolled + offset && position <= scrolled + viewSize - offset)
            return scrolled
        return Math.max(0, Math.min(position - 2 * offset, contentSize - viewSize))
    }
}
