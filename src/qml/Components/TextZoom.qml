import QtQuick 2.15
import "."

// Lies over texts: Ctrl and the wheel change their size. All else goes on to what is below.
MouseArea {
    id: root

    // Turns of the wheel that are no step yet, in eighths of a degree.
    property int __turned: 0

    signal aboutToZoom()

    acceptedButtons: Qt.NoButton
    onWheel: {
        if (!(wheel.modifiers & Qt.ControlModifier)) {
            wheel.accepted = false
            return
        }
        __turned += wheel.angleDelta.y
        var steps = __turned < 0 ? Math.ceil(__turned / 120) : Math.floor(__turned / 120)
        __turned -= 120 * steps
        if (steps !== 0) {
            aboutToZoom()
            CentralManager.zoomText(steps)
        }
    }
}
