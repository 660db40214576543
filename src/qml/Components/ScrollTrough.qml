import QtQuick 2.15

// The trough of a scroll bar.
Rectangle {
    property real size

    implicitWidth: size
    implicitHeight: size
    color: "white"
    opacity: 0.6
}
