import QtQuick 2.15
import "."
import "../Utils.js" as Utils

// A picture that can be clicked, without a background.
Clickable {
    id: root

    property string icon
    property bool themed: true
    property bool pressedLook: checked
    property real iconSize: Units.dp(22)

    implicitWidth: iconSize
    implicitHeight: iconSize
    opacity: !enabled ? 0.5 : hovered ? 0.8 : 1.0

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
}
