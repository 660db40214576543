import QtQuick 2.15
import "."

// Shows that its parent has the keyboard.
Rectangle {
    property bool shown: parent.activeFocus

    anchors { fill: parent; margins: -Units.dp(2) }
    radius: Units.dp(4)
    color: "transparent"
    visible: shown
    border { width: 2; color: ApplicationStyle.focus_color }
}
