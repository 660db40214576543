import QtQuick 2.15

// An edge that is dragged to make what it bounds larger or smaller. It moves with what it bounds, so that a drag is
// told as what lies between the mouse and where it took hold.
MouseArea {
    property point __hold

    signal dragged(real x, real y)

    preventStealing: true
    onPressed: __hold = Qt.point(mouse.x, mouse.y)
    onPositionChanged: dragged(mouse.x - __hold.x, mouse.y - __hold.y)
}
