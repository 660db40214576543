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
}
