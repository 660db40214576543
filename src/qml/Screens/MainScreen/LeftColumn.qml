import QtQuick 2.15
import "../../Components"
import "../../Kerno"
import "../../controls/Window"

// The canvas with its status bar, below the space of the action bar.
FocusScope {
    id: root

    property real actionBarHeight: 0
    property alias textRight: _statusBar.textRight
    property alias partialAnswersPanel: _canvasArea.partialAnswersPanel
    property alias metadataSummaryPanel: _canvasArea.metadataSummaryPanel
    readonly property var parts: [_canvasArea, _editBar, _statusBar]
    readonly property real scaleX: _canvasArea.width / CentralManager.canvasBaseWidth
    readonly property real scaleY: _canvasArea.height / CentralManager.canvasBaseHeight
    readonly property real canvasBaseScale: Math.max(0.1, Math.min(scaleX, scaleY))

    CanvasArea {
        id: _canvasArea
        anchors { left: parent.left; right: parent.right; bottom: _editBar.top }
        anchors { top: parent.top; topMargin: root.actionBarHeight }
        canvasScale: _statusBar.zoom
        onKernoToEdit: {
            _editBar.show(kernoId)
            if (byKey)
                _editBar.forceActiveFocus()
        }
    }

    KernoEditBar {
        id: _editBar
        anchors { left: parent.left; right: parent.right; bottom: _statusBar.top }
        height: visible ? implicitHeight : 0
        visible: CentralManager.showKernoEditBar
        onLeft: _canvasArea.takeKeyboard()
    }

    StatusBar {
        id: _statusBar
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
    }
}
