import QtQuick 2.15
import "../../Components"

// The line from the branch to the middle of a label.
Rectangle {
    property real middle: 0

    x: -width
    y: middle - height / 2
    width: Units.dp(15)
    height: Units.dp(1)
    color: "white"
    opacity: 0.5
}
