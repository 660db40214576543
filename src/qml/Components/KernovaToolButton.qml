import QtQuick 2.15
import "."
import "../Utils.js" as Utils

// A button of the action bar: an icon over its label.
Clickable {
    id: root

    property string icon
    property bool pressedLook: false

    implicitWidth: Units.dp(48)
    implicitHeight: _column.height
    opacity: enabled ? 1.0 : 0.4
    name: text
    Accessible.description: tooltip

    Column {
        id: _column
        width: parent.width
        spacing: Units.dp(6)

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Units.dp(31)
            height: Units.dp(31)
            fillMode: Image.PreserveAspectFit
            mipmap: true
            opacity: root.pressed ? 0.8 : root.hovered ? 0.9 : 1.0
            source: root.pressedLook || root.pressed ? Utils.iconSource(root.icon, true)
                                                     : Utils.iconSourceForTheme(root.icon, ApplicationStyle.dark)
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            text: root.text
            color: ApplicationStyle.default_text_color
            font.pixelSize: Units.dp(12)
        }
    }
}
