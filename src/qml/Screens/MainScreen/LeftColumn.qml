import QtQuick 2.15
import "../../Components"
import "../../controls/Window"
import "../../Kerno/CircleKerno"

// The canvas with its status bar, below the space of the action bar.
FocusScope {
    id: root

    property real actionBarHeight: 0
    property alias textRight: _statusBar.textRight
    readonly property real scaleX: _canvasArea.width / CentralManager.canvasBaseWidth
    readonly property real scaleY: _canvasArea.height / CentralManager.canvasBaseHeight
    readonly property real canvasBaseScale: Math.max(0.1, Math.min(scaleX, scaleY))

    Item {
        id: _canvasArea
        anchors { left: parent.left; right: parent.right; bottom: _statusBar.top }
        anchors { top: parent.top; topMargin: root.actionBarHeight }

        CircleKernoCanvas {
            anchors.fill: parent
            canvasScale: _statusBar.zoom
            newKernoButton: _addButton
        }

        AddKernoButton {
            id: _addButton
            anchors { top: parent.top; right: parent.right }
            anchors { topMargin: ApplicationStyle.default_margin; rightMargin: Units.dp(36) }
            z: 5
        }
    }

    StatusBar {
        id: _statusBar
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
    }
}
