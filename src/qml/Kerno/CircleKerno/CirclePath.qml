import QtQuick 2.15
import Kernova 1.4
import "../../Components"

// The ring on which the children of a bubble sit. Closed, they lie behind the bubble's rim.
PathView {
    id: root

    property Item bubble: null
    property bool expanded: false
    readonly property real size: !bubble ? 0
                               : bubble.width * (!expanded || count < 1 ? 1.2 : count > 7 ? 3 : 2.1)

    width: size
    height: size
    anchors.centerIn: bubble
    interactive: false

    Behavior on width {
        enabled: CentralManager.animationsOn
        NumberAnimation { duration: 200 }
    }
    Behavior on height {
        enabled: CentralManager.animationsOn
        NumberAnimation { duration: 200 }
    }

    model: KernoProxyModel {
        parentKernoId: root.bubble && root.bubble.kernoId > 0 ? root.bubble.kernoId : -2
    }
    path: Ellipse {
        width: root.width
        height: root.height
    }
}
