import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// A pale veil that shows the canvas's bounds during a drag, and the menu of the free canvas.
Rectangle {
    id: root

    property bool dragging: false
    property Item mouseArea: null

    color: "white"
    opacity: dragging ? 0.3 : 0

    Behavior on opacity { NumberAnimation {} }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        // A bubble under the mouse has a menu of its own.
        onPressed: mouse.accepted = !root.mouseArea.topLevelKerno()
        onClicked: {
            _menu.position = Qt.point(mouse.x, mouse.y)
            _menu.popup()
        }
    }

    StyledMenu {
        id: _menu

        property point position

        MenuItem {
            text: qsTr("Add Kerno Here")
            enabled: CentralManager.canMutate
            onTriggered: undoManager.addKerno({ parentKernoId: CentralManager.parentForNew,
                                                x: _menu.position.x / CentralManager.canvasBaseScale,
                                                y: _menu.position.y / CentralManager.canvasBaseScale })
        }
    }
}
