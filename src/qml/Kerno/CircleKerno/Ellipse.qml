import QtQuick 2.15

// An ellipse from its lowest point by the left, the top and the right back to the bottom.
Path {
    id: root

    property real width: 0
    property real height: 0
    readonly property real __rx: width / 2
    readonly property real __ry: height / 2
    // How far the control points of a quarter arc stand from its ends.
    readonly property real __kx: 0.551784 * __rx
    readonly property real __ky: 0.551784 * __ry

    startX: __rx
    startY: height

    PathCubic {
        x: 0; y: root.__ry
        control1X: root.__rx - root.__kx; control1Y: root.height
        control2X: 0; control2Y: root.__ry + root.__ky
    }
    PathCubic {
        x: root.__rx; y: 0
        control1X: 0; control1Y: root.__ry - root.__ky
        control2X: root.__rx - root.__kx; control2Y: 0
    }
    PathCubic {
        x: root.width; y: root.__ry
        control1X: root.__rx + root.__kx; control1Y: 0
        control2X: root.width; control2Y: root.__ry - root.__ky
    }
    PathCubic {
        x: root.__rx; y: root.height
        control1X: root.width; control1Y: root.__ry + root.__ky
        control2X: root.__rx + root.__kx; control2Y: root.height
    }
}
