import QtQuick 2.15
import "../../Components"
import "../../Kerno/CircleKerno"
import "../../Kerno/TreeViewKerno"
import "../../Kerno/Views/Hierarchy"
import "../../Kerno/Views/Overlap"

// The kernos: on the canvas, as a tree, or seen from one of them.
FocusScope {
    id: root

    property real canvasScale: 1
    property Item partialAnswersPanel: null
    property Item metadataSummaryPanel: null
    readonly property bool __inView: CentralManager.showingOverlapOrHierarchy
    readonly property Component __view: CentralManager.showOverlapViewForKernoId > 0 ? _overlapView
                                      : CentralManager.showHierarchyViewForKerno > 0 ? _hierarchyView
                                      : CentralManager.showAsTreeView ? _treeView : null

    // The quick edit bar is to show a kerno: one that was clicked, or that a key asks for.
    signal kernoToEdit(int kernoId, bool byKey)

    function takeKeyboard() {
        _keys.forceActiveFocus()
    }

    // It stays behind the views: it holds the manual order, and stands at once when they are left.
    CircleKernoCanvas {
        id: _canvas
        anchors.fill: parent
        visible: !root.__view
        canvasScale: root.canvasScale
        newKernoButton: _addButton
        onKernoPressed: root.kernoToEdit(kernoId, false)
    }

    CanvasKeys {
        id: _keys
        objectName: "canvasKeys"
        anchors.fill: parent
        visible: !root.__view
        canvas: _canvas
        onEditRequested: {
            CentralManager.showKernoEditBar = true
            root.kernoToEdit(kernoId, true)
        }
    }

    Loader {
        anchors.fill: parent
        objectName: "kernoView"
        focus: true
        sourceComponent: root.__view
    }

    Component {
        id: _treeView
        TreeViewCanvas {}
    }

    Component {
        id: _hierarchyView
        StyledScrollView {
            KernoHierarchyView {
                canvasScale: root.canvasScale
                partialAnswersPanel: root.partialAnswersPanel
                metadataSummaryPanel: root.metadataSummaryPanel
                newKernoButton: _addButton
            }
        }
    }

    Component {
        id: _overlapView
        KernoOverlapView { partialAnswersPanel: root.partialAnswersPanel }
    }

    AddKernoButton {
        id: _addButton
        anchors { top: parent.top; right: parent.right }
        anchors { topMargin: ApplicationStyle.default_margin; rightMargin: Units.dp(36) }
        z: 5
        // Elsewhere the area below takes what is dropped on it.
        takesDrops: CentralManager.showAsTreeView && !root.__inView
    }
}
