import QtQuick 2.15
import "../../Components"

// The ring inside a bubble that tells of its children, and blinks in a new one.
Rectangle {
    id: root

    property int level: 2
    property color background: "white"
    property bool shown: false
    property bool fades: false

    radius: width / 2
    color: "transparent"
    opacity: 0
    border { width: Units.dp(0.6); color: Qt.darker(background, 1.7) }

    Behavior on opacity {
        enabled: root.fades
        NumberAnimation {}
    }

    Component.onCompleted: opacity = Qt.binding(function() { return root.shown ? 1 : 0 })

    Rectangle {
        anchors { fill: parent; margins: Units.dp(2) }
        radius: width / 2
        color: "transparent"
        border { width: Units.dp(3); color: Qt.rgba(1, 1, 1, root.level === 0 ? 0.5 : 0.7) }
    }
}
