import QtQuick 2.15
import "../Components"

// A button on the black of the introduction, in both themes.
Clickable {
    id: root

    property bool chosen: false

    implicitWidth: Math.max(height, _label.implicitWidth + 2 * Units.dp(12))
    implicitHeight: Units.dp(32)
    opacity: enabled ? 1.0 : 0.4
    Accessible.selected: chosen

    Rectangle {
        anchors.fill: parent
        radius: Units.dp(4)
        color: root.chosen ? ApplicationStyle.orrange_button_color
             : root.hovered ? "#3a3a3a" : "transparent"
        border { width: 1; color: ApplicationStyle.border_color }
    }
    PlainText {
        id: _label
        anchors.centerIn: parent
        text: root.text
        color: root.chosen ? ApplicationStyle.orrange_button_text_color : "white"
        font { pixelSize: ApplicationStyle.dialog_text_font_size_small; bold: root.chosen }
    }
}
