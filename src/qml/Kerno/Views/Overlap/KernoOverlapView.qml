import QtQuick 2.15
import Kernova 1.4
import "../../../Components"
import "../../../Components/Quarter.js" as Quarter
import "../../CircleKerno"
import ".."
import "../ViewGeometry.js" as Geometry

// One kerno in the middle, and all others around it: the nearer, the more of their codings overlap with its own.
FocusScope {
    id: root

    property int mainKernoId: CentralManager.showOverlapViewForKernoId
    property bool noBindings: false
    property bool ignoreZeroHighlights: false
    // What the rings lie on.
    property color paperColor: ApplicationStyle.canvas_background_color
    property bool showNumberOfCodings: CentralManager.showNumberOfCodingsInKernos
    property Item partialAnswersPanel: null
    property int _secondKernoId: -1
    property int _corner: 1

    readonly property real __bubbleLength: 2 * Units.dp(25)
    property var __layout: ({ places: {}, rings: [] })

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Overlaps of kernos")

    function __toggle(kernoId) {
        _secondKernoId = _secondKernoId === kernoId ? -1 : kernoId
    }

    function __arrange() {
        var others = []
        for (var i = 0; i < _model.rowCount(); ++i) {
            var kernoId = _model.get(i, "kernoId")
            if (kernoId === mainKernoId)
                continue
            var overlaps = _model.get(i, "overlaps")
            others.push({ kernoId: kernoId, overlaps: overlaps, overlapFactor: _model.get(i, "overlapFactor"),
                          angle: _model.getAngleForOverlap(overlaps) })
        }
        __layout = Geometry.overlapLayout(others, _surface.width, _surface.height, __bubbleLength)
    }

    function __feed() {
        if (noBindings || !partialAnswersPanel || mainKernoId < 1)
            return
        partialAnswersPanel.resetModel()
        partialAnswersPanel.partialAnswers = krnFile.partialAnswersForOverlapsBetweenKernos(
                    mainKernoId, _secondKernoId > 0 ? _secondKernoId : mainKernoId)
    }

    onMainKernoIdChanged: {
        _secondKernoId = -1
        Qt.callLater(__feed)
    }
    on_SecondKernoIdChanged: Qt.callLater(__feed)
    onPartialAnswersPanelChanged: Qt.callLater(__feed)

    Keys.onPressed: _keys.handle(event)

    KernoViewKeys {
        id: _keys
        repeater: _bubbles
        onActivated: root.__toggle(bubble.kernoId)
    }

    KernoOverlapModel {
        id: _model
        kernoId: root.mainKernoId
        onNewAsyncResultComputed: Qt.callLater(root.__arrange)
        onRowsInserted: Qt.callLater(root.__arrange)
        onRowsRemoved: Qt.callLater(root.__arrange)
        onModelReset: Qt.callLater(root.__arrange)
    }

    Item {
        id: _surface
        objectName: "bubbles"
        anchors.centerIn: parent
        width: Math.min(root.width, root.height)
        height: width
        onWidthChanged: Qt.callLater(root.__arrange)

        Repeater {
            model: root.__layout.rings
            OverlapRing { ring: modelData; paperColor: root.paperColor }
        }

        Repeater {
            id: _bubbles
            model: _model

            KernoViewBubble {
                readonly property bool __isMain: kernoId === root.mainKernoId
                readonly property var __place: __isMain ? Qt.point(_surface.width / 2, _surface.height / 2)
                                                        : root.__layout.places[kernoId]

                visible: __place !== undefined
                x: visible ? __place.x - width / 2 : 0
                y: visible ? __place.y - height / 2 : 0
                dataSource: model
                mouseArea: _mouse
                dropArea: _drop
                tabStop: activeFocus || index === _keys.tabStop
                showNumberOfCodings: root.showNumberOfCodings
                chosen: root._secondKernoId === kernoId
                onActiveFocusChanged: {
                    if (activeFocus)
                        _keys.current = index
                }
            }
        }
    }

    KernoViewMouseArea {
        id: _mouse
        anchors.fill: parent
        content: _surface
        onBubbleClicked: root.__toggle(bubble.kernoId)
        // The note keeps its place and its figures while it fades.
        onKernoChanged: {
            if (!kerno)
                return
            var centre = kerno.mapToItem(_mouse, kerno.scaledR, kerno.scaledR)
            root._corner = Quarter.quarter(centre.x, centre.y, width, height)
            _note.overlap = kerno.dataSource.overlaps
        }

        GeneralKernoToolTip {
            id: _note
            area: _mouse
            corner: root._corner
            delay: 0
            kernoId: _mouse.kernoId
            suppressed: _mouse.pressed
        }
    }

    CircleKernoCanvasDropArea {
        id: _drop
        anchors.fill: parent
        canvas: _surface
    }
}
