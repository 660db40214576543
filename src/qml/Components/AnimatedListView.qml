import QtQuick 2.15

// A list whose rows glide to their places.
ListView {
    id: root

    property real yOffset: 100

    boundsBehavior: Flickable.StopAtBounds

    displaced: Transition { NumberAnimation { properties: "x,y"; duration: 800; easing.type: Easing.InOutBack } }
    move: Transition { NumberAnimation { properties: "x,y"; duration: 800; easing.type: Easing.InOutBack } }
    populate: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 400 } }
    add: Transition {
        id: _add
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 800 }
        NumberAnimation { property: "y"; from: _add.ViewTransition.destination.y + root.yOffset; duration: 800 }
    }
    remove: Transition { NumberAnimation { property: "opacity"; to: 0; duration: 800 } }
}
