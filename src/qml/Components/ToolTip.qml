import QtQuick 2.15
import "."
import "Quarter.js" as Quarter

// A black note beside the mouse of `area`, on the side towards the area's centre.
Rectangle {
    id: root

    property MouseArea area: null
    property bool shown: false
    property real standardOffset: Units.dp(30)
    // So wide that it fits between the mouse and the edge of its half.
    property real maximumWidth: area ? area.width / 2 - standardOffset : Units.dp(300)
    default property alias content: _content.data

    // The quarter of the area in which the mouse is; see Quarter.js.
    property int corner: area ? Quarter.quarter(area.mouseX, area.mouseY, area.width, area.height) : 1
    readonly property bool __leftHalf: corner === 1 || corner === 4
    readonly property bool __topHalf: corner === 1 || corner === 2

    signal hideRequested()

    width: _content.childrenRect.width + 2 * ApplicationStyle.default_margin
    height: _content.childrenRect.height + 2 * ApplicationStyle.default_margin
    x: !area ? 0 : __leftHalf ? area.mouseX + standardOffset : area.mouseX - standardOffset - width
    y: !area ? 0 : __topHalf ? area.mouseY + standardOffset : area.mouseY - standardOffset - height
    z: 20
    radius: Units.dp(4)
    color: "black"
    opacity: shown ? 0.9 : 0
    visible: opacity !== 0

    Behavior on opacity {
        SequentialAnimation {
            PauseAnimation { duration: root.shown ? 1000 : 200 }
            NumberAnimation {}
        }
    }
    Behavior on x {
        enabled: root.visible
        NumberAnimation {}
    }
    Behavior on y {
        enabled: root.visible
        NumberAnimation {}
    }

    Item {
        id: _content
        x: ApplicationStyle.default_margin
        y: ApplicationStyle.default_margin
        width: childrenRect.width
        height: childrenRect.height
    }

    MouseArea {
        anchors.fill: parent
        onPressed: {
            root.hideRequested()
            mouse.accepted = false
        }
    }
}
