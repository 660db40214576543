import QtQuick 2.15
import "../../Components"

// Switches a mark of the selected text on or off; its face wears the mark.
Rectangle {
    id: root

    property alias text: _face.text
    property alias tooltip: _tip.text

    signal clicked()

    width: Units.dp(34)
    height: Units.dp(34)
    radius: Units.dp(4)
    color: _mouse.pressed ? ApplicationStyle.dialog_highlight_color
         : _mouse.containsMouse ? Qt.rgba(0.53, 0.53, 0.53, 0.35) : "transparent"
    opacity: enabled ? 1.0 : 0.45
    border { width: 1; color: ApplicationStyle.border_color }

    MarkedText {
        id: _face
        anchors.centerIn: parent
        color: ApplicationStyle.dialog_text_color_alternative
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.clicked()
    }

    HoverToolTip {
        id: _tip
        anchorItem: root
        shown: _mouse.containsMouse && !_mouse.pressed
    }
}
