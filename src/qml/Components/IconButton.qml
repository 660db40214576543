import QtQuick 2.15
import "."
import "../Utils.js" as Utils

// A picture that can be clicked, without a background.
Item {
    id: root

    property string icon
    property bool themed: true
    property bool pressedLook: checked
    property bool checkable: false
    property bool checked: false
    property real iconSize: Units.dp(22)
    property string text
    property string tooltip
    readonly property bool hovered: _mouse.containsMouse
    readonly property bool pressed: _mouse.pressed

    signal clicked()

    implicitWidth: iconSize
    implicitHeight: iconSize
    opacity: !enabled ? 0.5 : hovered ? 0.8 : 1.0

    onHoveredChanged: CentralManager.onButtonHoverChanged(root)

    Image {
        anchors.centerIn: parent
        width: root.iconSize
        height: root.iconSize
        fillMode: Image.PreserveAspectFit
        mipmap: true
        source: root.icon === "" ? ""
              : root.pressedLook || !root.themed ? Utils.iconSource(root.icon, root.pressedLook)
              : Utils.iconSourceForTheme(root.icon, ApplicationStyle.dark)
    }

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: {
            if (root.checkable)
                root.checked = !root.checked
            root.clicked()
        }
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
