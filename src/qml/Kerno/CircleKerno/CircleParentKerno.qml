import QtQuick 2.15
import "../../Components"

// A bubble that may have a ring of children.
CircleKernoBase {
    id: root

    Behavior on opacity {
        enabled: CentralManager.animationsOn
        NumberAnimation {}
    }
    Behavior on background {
        enabled: CentralManager.animationsOn
        ColorAnimation { duration: 200 }
    }
    Behavior on x {
        enabled: CentralManager.animationsOn && root.level === 0 && !root.isDragging
        NumberAnimation {}
    }
    Behavior on y {
        enabled: CentralManager.animationsOn && root.level === 0 && !root.isDragging
        NumberAnimation {}
    }

    // A new kerno blinks while its preferences are open, and for a while after.
    Timer {
        id: _blink
        interval: 750
        repeat: true
        onTriggered: root.haloOn = !root.haloOn
    }

    Timer {
        id: _blinkEnd
        interval: 5000
        onTriggered: {
            _blink.stop()
            root.haloOn = false
        }
    }

    Component.onCompleted: {
        if (kernoId > 0 && kernoId === CentralManager.showPreferencesDialogForKerno)
            _blink.start()
    }

    Connections {
        target: krnFile
        function onNewKernoAdded(kernoId) {
            if (kernoId === root.kernoId)
                _blink.start()
        }
    }

    Connections {
        target: CentralManager
        function onShowPreferencesDialogForKernoChanged() {
            if (CentralManager.showPreferencesDialogForKerno === -1 && _blink.running)
                _blinkEnd.restart()
        }
    }
}
