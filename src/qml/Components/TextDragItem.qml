import QtQuick 2.15
import "."

// The symbol that carries a selected passage. There is one for the whole screen.
Image {
    id: root

    property int start: -1
    property int length: 0
    property int sourceId: -1
    property int questionId: -1

    width: Units.dp(48)
    height: Units.dp(48)
    source: "qrc:///qml/images/text-drag.png"
    mipmap: true
    opacity: 0
    visible: opacity !== 0

    Drag.keys: ["text"]
    Drag.hotSpot: Qt.point(width / 2, height / 2)

    Behavior on opacity { NumberAnimation { duration: 200 } }

    // Takes the symbol up under the point, which is given in the parent's coordinates.
    function pickUp(point) {
        x = point.x - width / 2
        y = point.y - height / 2
        opacity = 1
        Drag.active = true
    }

    function drop() {
        Drag.drop()
        opacity = 0
    }

    function cancel() {
        Drag.cancel()
        opacity = 0
    }
}
