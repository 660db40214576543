import QtQuick 2.15

// The handle of a scroll bar. One that fills its trough has nothing to scroll, and isn't shown.
// The style of the program is made of it, so it is told its looks.
Rectangle {
    property real size
    property color baseColor
    property bool pressed: false
    property bool horizontal: false
    property Item view: null

    implicitWidth: size
    implicitHeight: size
    radius: size / 2
    opacity: !view || (horizontal ? view.contentWidth > view.width : view.contentHeight > view.height) ? 1 : 0
    color: pressed ? Qt.darker(baseColor, 1.2) : baseColor
}
