import QtQuick 2.15
import "../../Components"

// Makes the halo of a new kerno blink while its preferences are open, and for a while after.
Timer {
    id: root

    property bool haloOn: false

    signal finished()

    interval: 750
    repeat: true
    running: true
    onTriggered: haloOn = !haloOn

    property Timer __end: Timer {
        interval: 5000
        onTriggered: root.finished()
    }

    property Connections __preferences: Connections {
        target: CentralManager
        function onShowPreferencesDialogForKernoChanged() {
            if (CentralManager.showPreferencesDialogForKerno === -1)
                root.__end.restart()
        }
    }
}
