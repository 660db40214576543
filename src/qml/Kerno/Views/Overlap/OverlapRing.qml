import QtQuick 2.15
import "../../../Components"

// The circle on which kernos with as many overlaps stand, with that number on it.
Item {
    id: root

    property var ring: null
    property color paperColor: ApplicationStyle.canvas_background_color

    anchors.fill: parent

    Rectangle {
        anchors.centerIn: parent
        width: 2 * root.ring.r1
        height: 2 * root.ring.r2
        radius: width / 2
        color: "transparent"
        border { width: 3; color: "#21354e" }
    }

    // The line gives way to the number.
    Rectangle {
        anchors.centerIn: _number
        width: _number.width + Units.dp(6)
        height: _number.height
        color: root.paperColor
    }

    PlainText {
        id: _number
        x: root.ring.label.x - width / 2
        y: root.ring.label.y - height / 2
        text: root.ring.overlaps
        color: "#424668"
        font { pixelSize: ApplicationStyle.dialog_text_font_size; bold: true }
    }
}
