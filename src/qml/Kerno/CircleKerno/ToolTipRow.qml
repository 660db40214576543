import QtQuick 2.15
import "../../Components"

// A name and a figure on one line of a tooltip.
Item {
    property alias name: _left.text
    property alias figure: _right.text

    height: _left.height

    PlainText {
        id: _left
        anchors { left: parent.left; right: _right.left; rightMargin: Units.dp(8) }
        elide: Text.ElideMiddle
        color: "white"
        font.pixelSize: Units.dp(13)
    }
    PlainText {
        id: _right
        anchors.right: parent.right
        color: "white"
        font.pixelSize: Units.dp(13)
    }
}
