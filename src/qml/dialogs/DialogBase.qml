import QtQuick 2.15
import "../Components"

// The veil that a dialog's content stands on. `implementation` is the content; it closes itself through its
// property `dialogBase`.
Item {
    id: root

    property Component implementation
    readonly property alias content: _content.item
    property bool completed: false
    property bool __counted: false

    signal closed()

    anchors.fill: parent
    z: 100
    opacity: 0
    visible: opacity !== 0

    Behavior on opacity { NumberAnimation {} }

    function show() {
        opacity = 1
        __count(true)
    }

    function hide() {
        var unseen = opacity === 0
        opacity = 0
        __count(false)
        // Nothing is left to fade, so no change of visibility will follow.
        if (unseen && completed)
            closed()
    }

    function close() {
        hide()
        gc()
    }

    function __giveFocus() {
        if (completed && _content.item)
            _content.forceActiveFocus()
    }

    function __count(counted) {
        if (counted !== __counted) {
            __counted = counted
            CentralManager.overlayCount += counted ? 1 : -1
        }
    }

    onVisibleChanged: {
        if (!visible && completed)
            closed()
    }

    Component.onCompleted: {
        // First, so that what has the focus now is known when the content takes it.
        show()
        completed = true
        __giveFocus()
    }
    Component.onDestruction: __count(false)

    Rectangle {
        anchors.fill: parent
        color: "black"
        opacity: 0.6
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel.accepted = true
    }

    DialogFocus {
        dialog: root
        shown: root.__counted
    }

    FocusScope {
        anchors.fill: parent
        focus: true

        Loader {
            id: _content
            anchors.centerIn: parent
            focus: true
            sourceComponent: root.implementation
            onLoaded: {
                item.dialogBase = root
                root.__giveFocus()
            }
        }
    }
}
