import QtQuick 2.15
import Kernova 1.4
import "../../../Components"
import "../../../Components/Quarter.js" as Quarter
import "../../CircleKerno"
import ".."
import "../ViewGeometry.js" as Geometry

// One kerno with its descendants, from top to bottom.
Flickable {
    id: root

    property int mainKernoId: CentralManager.showHierarchyViewForKerno
    property real canvasScale: 1
    property Item partialAnswersPanel: null
    property Item metadataSummaryPanel: null
    property Item newKernoButton: null
    property bool noBindings: false
    property bool showNumberOfCodings: CentralManager.showNumberOfCodingsInKernos
    property int _showForOne: 0
    readonly property int _corner: Quarter.quarter(_mouse.mouseX - contentX, _mouse.mouseY - contentY, width, height)
    property int latestKerno: -1

    readonly property real __bubbleLength: 2 * Units.dp(25)
    readonly property var __shownIds: _showForOne > 0 ? [_showForOne] : _model.kernoIds

    contentWidth: width
    contentHeight: _column.height * _column.scale + Units.dp(50)
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Hierarchy of a kerno")

    function select(bubble) {
        if (_showForOne === bubble.kernoId) {
            CentralManager.parentForNew = mainKernoId
            _showForOne = 0
        } else {
            // A kerno below the second level would not be shown.
            CentralManager.parentForNew = bubble.dataSource.level === 2 ? bubble.parentKernoId : bubble.kernoId
            _showForOne = bubble.kernoId
        }
    }

    function __feed() {
        if (noBindings)
            return
        var ids = __shownIds
        if (partialAnswersPanel) {
            partialAnswersPanel.resetModel()
            partialAnswersPanel.partialAnswers = krnFile.partialAnswersForKernos(ids)
        }
        if (metadataSummaryPanel) {
            metadataSummaryPanel.resetModel()
            metadataSummaryPanel.kernoIds = ids
        }
    }

    function __showMenu(bubble) {
        _menu.kernoId = bubble.kernoId
        _menu.isMain = bubble.kernoId === mainKernoId
        _menu.popupOver(bubble)
    }

    // The row at its place in the content, as it is drawn.
    function __scrollTo(row) {
        contentY = Geometry.scrolledToRow(_column.y + row.y * canvasScale, row.height * canvasScale, contentY, height,
                                          contentHeight)
    }

    onMainKernoIdChanged: _showForOne = 0
    on__ShownIdsChanged: Qt.callLater(__feed)
    onPartialAnswersPanelChanged: Qt.callLater(__feed)
    onMetadataSummaryPanelChanged: Qt.callLater(__feed)
    onContentHeightChanged: {
        var index = latestKerno > 0 ? Array.prototype.indexOf.call(_model.kernoIds, latestKerno) : -1
        var row = index < 0 ? null : _rows.itemAt(index)
        if (!row)
            return
        __scrollTo(row)
        latestKerno = -1
    }

    Keys.onPressed: _keys.handle(event)

    KernoViewKeys {
        id: _keys
        repeater: _rows
        onActivated: root.select(bubble)
        onMenuRequested: root.__showMenu(bubble)
        onMoved: root.__scrollTo(row)
    }

    KernoHierarchyModel {
        id: _model
        kernoId: root.mainKernoId
        onKernoAdded: root.latestKerno = kernoId
        onKernoIdsChanged: {
            var left = Array.prototype.slice.call(kernoIds)
            if (root._showForOne > 0 && left.indexOf(root._showForOne) < 0) {
                CentralManager.parentForNew = root.mainKernoId
                root._showForOne = 0
            }
            // The main kerno is gone: new ones must not be made below it, where nobody would see them.
            if (left.length === 0 && !root.noBindings)
                CentralManager.parentForNew = -1
        }
    }

    HierarchyMenu {
        id: _menu
        onDeleted: {
            if (root._showForOne === kernoId) {
                CentralManager.parentForNew = root.mainKernoId
                root._showForOne = 0
            }
        }
    }

    KernoViewMouseArea {
        id: _mouse
        width: root.contentWidth
        height: Math.max(root.contentHeight, root.height)
        content: _column
        onBubbleClicked: root.select(bubble)
        onMenuRequested: root.__showMenu(bubble)
        onBubbleDoubleClicked: {
            if (bubble.kernoId !== root.mainKernoId)
                return
            CentralManager.showMetadataForKerno = false
            CentralManager.showHierarchyViewForKerno = -1
        }

        Column {
            id: _column

            readonly property real __firstScale: _rows.count > 0 && _rows.itemAt(0) ? _rows.itemAt(0).bubble.scale : 1

            objectName: "bubbles"
            anchors.horizontalCenter: parent.horizontalCenter
            // The first bubble is drawn larger than its square.
            y: (root.__bubbleLength * __firstScale - root.__bubbleLength) / 2
            scale: root.canvasScale
            transformOrigin: Item.Top

            Repeater {
                id: _rows
                model: _model

                HierarchyRow {
                    width: root.__bubbleLength + Units.dp(60)
                    height: Geometry.rowHeight(index, root.__bubbleLength, bubble.scale, Units.dp(40))
                    z: _rows.count - index
                    dataSource: model
                    rowIndex: index
                    rowCount: _rows.count
                    tabStop: activeFocus || index === _keys.tabStop
                    mouseArea: _mouse
                    dropArea: _drop
                    selected: root._showForOne === bubble.kernoId
                    showNumberOfCodings: root.showNumberOfCodings
                    onActiveFocusChanged: {
                        if (activeFocus)
                            _keys.current = index
                    }
                }
            }
        }

        GeneralKernoToolTip {
            area: _mouse
            corner: root._corner
            delay: 10
            kernoId: _mouse.kernoId
            suppressed: _mouse.pressed || _menu.__popupVisible
        }
    }

    CircleKernoCanvasDropArea {
        id: _drop
        width: _mouse.width
        height: _mouse.height
        canvas: _column
        newKernoButton: root.newKernoButton
    }
}
