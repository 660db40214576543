import QtQuick 2.15
import Kernova 1.4
import "../Kerno/CircleKerno"
import "../Kerno/Views/Hierarchy"
import "../Kerno/Views/Overlap"

// Draws the pictures of a report out of sight, one a step, and saves them into its folder: the canvas in five orders,
// each without and with the numbers of codings, then the hierarchies, then the overlaps.
Item {
    id: root

    // The folder of the report's data.
    property string outputFolder
    property int step: 0
    readonly property int mainCanvasSteps: 10
    property var hierarchyKernos: []
    property var kernosWithOverlaps: []
    readonly property int totalSteps: mainCanvasSteps + hierarchyKernos.length + kernosWithOverlaps.length
    property bool cancelled: false

    readonly property bool __onCanvas: step > 0 && step <= mainCanvasSteps
    readonly property int __hierarchyIndex: step - mainCanvasSteps - 1
    readonly property int __overlapIndex: __hierarchyIndex - hierarchyKernos.length
    readonly property bool __onHierarchy: __hierarchyIndex >= 0 && __overlapIndex < 0
    readonly property bool __onOverlaps: __overlapIndex >= 0 && step <= totalSteps
    // Of hierarchies and overlaps: the second picture of each has numbers.
    property bool __numbers: false
    readonly property var __canvasPictures: [
        { file: "main_canvas_default", sort: KernoProxyModel.NoSort },
        { file: "main_canvas_alpha_asc", sort: KernoProxyModel.ByTitleAscending },
        { file: "main_canvas_alpha_desc", sort: KernoProxyModel.ByTitleDescending },
        { file: "main_canvas_time_asc", sort: KernoProxyModel.ByTimestampAscending },
        { file: "main_canvas_time_desc", sort: KernoProxyModel.ByTimestampDescending }
    ]
    readonly property var __canvasPicture: __canvasPictures[Math.max(0, Math.ceil(step / 2) - 1)] || __canvasPictures[0]

    signal progress(int percent, string status)
    signal completed(bool cancelled)

    width: 2000
    height: 1200
    // Not hidden: what is hidden doesn't find its place.
    opacity: 0

    function start() {
        appHelper.createPath(outputFolder)
        hierarchyKernos = CentralManager.generateHierarchyViews ? krnFile.kernoIdsForKernosWithChildren() : []
        kernosWithOverlaps = CentralManager.generateOverlapViews ? krnFile.kernoIdsForKernosWithOverlaps() : []
        cancelled = false
        step = 1
    }

    function cancel() {
        if (cancelled)
            return
        cancelled = true
        step = 0
        CentralManager.animationsOn = true
        completed(true)
    }

    function __status() {
        return __onCanvas ? qsTr("Generating main canvas views...")
             : __onHierarchy ? qsTr("Generating hierarchy views...") : qsTr("Generating overlap views...")
    }

    // Saves what the item shows, and then goes on; also when nothing could be grabbed.
    function __save(item, file, then) {
        var path = outputFolder + "/" + file + ".png"
        var goOn = function() {
            if (!root.cancelled)
                then()
        }
        var grabbed = item.grabToImage(function(result) {
            if (!root.cancelled)
                appHelper.saveGrabbedItem(result, path)
            goOn()
        })
        if (!grabbed)
            goOn()
    }

    // One of the two pictures of a kerno's view, and then the other or the next step.
    function __saveView(item, file) {
        __save(item, file, function() {
            if (root.__numbers)
                ++root.step
            else
                root.__numbers = true
        })
    }

    onStepChanged: {
        CentralManager.animationsOn = step < 1 || step > totalSteps
        if (step > totalSteps) {
            step = 0
            completed(cancelled)
        } else if (step > 0) {
            if (step % 10 === 0)
                gc()
            __numbers = false
            progress(Math.round(step / totalSteps * 100), __status())
        }
    }

    // The canvas

    Item {
        id: _surface
        width: 2000
        height: 2000
        scale: 3

        Item {
            anchors { fill: parent; margins: 20 }

            Repeater {
                id: _bubbles
                model: KernoProxyModel {
                    id: _kernos
                    parentKernoId: -1
                    sortType: root.__canvasPicture.sort
                }

                CircleKernoLevel0Delegate {
                    dataSource: model
                    rowIndex: index
                    rowCount: _kernos.count
                    canvasBaseScale: 1.6
                    forceAutoPosition: root.step > 2
                    showNumberOfCodings: root.step % 2 === 0
                }
            }
        }
    }

    Timer {
        property int forStep: root.__onCanvas ? root.step : 0
        interval: 0
        onForStepChanged: {
            if (forStep > 0)
                restart()
            else
                stop()
        }
        onTriggered: {
            var file = root.__canvasPicture.file + (root.step % 2 === 0 ? "_num" : "")
            root.__save(_surface, file, function() { ++root.step })
        }
    }

    // Hierarchies and overlaps

    Item {
        id: _hierarchySurface
        width: 2000
        height: 2000

        Loader {
            id: _hierarchy
            anchors { fill: parent; margins: 50 }
            active: root.__onHierarchy

            // As large as it may be, so that a small hierarchy can be read and a long one is whole.
            function fit() {
                item.canvasScale = 1
                item.canvasScale = Math.min(2, (height - 50) / item.contentHeight)
            }

            sourceComponent: KernoHierarchyView {
                mainKernoId: root.__onHierarchy ? root.hierarchyKernos[root.__hierarchyIndex] : -1
                noBindings: true
                showNumberOfCodings: root.__numbers
            }
        }
    }

    Item {
        id: _overlapSurface
        width: 1000
        height: 1000

        Loader {
            anchors.fill: parent
            active: root.__onOverlaps
            sourceComponent: KernoOverlapView {
                mainKernoId: root.__onOverlaps ? root.kernosWithOverlaps[root.__overlapIndex] : -1
                noBindings: true
                ignoreZeroHighlights: true
                paperColor: "white"
                showNumberOfCodings: root.__numbers
            }
        }
    }

    Timer {
        // Changes with each picture to be taken.
        property int picture: root.__onHierarchy || root.__onOverlaps ? 2 * root.step + (root.__numbers ? 1 : 0) : 0
        interval: 60
        onPictureChanged: {
            if (picture > 0)
                restart()
            else
                stop()
        }
        onTriggered: {
            if (root.__onHierarchy && !root.__numbers)
                _hierarchy.fit()
            if (root.__onHierarchy)
                root.__saveView(_hierarchySurface, "hierarchy_%1_num".arg(root.hierarchyKernos[root.__hierarchyIndex]))
            else
                root.__saveView(_overlapSurface, "overlap_%1".arg(root.kernosWithOverlaps[root.__overlapIndex])
                                + (root.__numbers ? "_num" : ""))
        }
    }
}
