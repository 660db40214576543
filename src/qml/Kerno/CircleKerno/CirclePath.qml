import QtQuick 2.15
import Kernova 1.4
import "../../Components"

// The ring on which the children of a bubble sit. Closed, they lie behind the bubble's rim.
Item {
    id: root

    property Item bubble: null
    property bool expanded: false
    property Component delegate: null
    readonly property int count: _path.item ? _path.item.count : 0
    readonly property real size: !bubble ? 0
                               : bubble.width * (!expanded || count < 1 ? 1.2 : count > 7 ? 3 : 2.1)

    width: size
    height: size
    anchors.centerIn: bubble

    Behavior on width {
        enabled: CentralManager.animationsOn
        NumberAnimation { duration: 200 }
    }
    Behavior on height {
        enabled: CentralManager.animationsOn
        NumberAnimation { duration: 200 }
    }

    // Most kernos have no children, and a model of its own would look at all kernos to find none.
    Loader {
        id: _path
        anchors.fill: parent
        active: !!root.bubble && root.bubble.hasChildKernos
        sourceComponent: PathView {
            interactive: false
            delegate: root.delegate
            model: KernoProxyModel { parentKernoId: root.bubble ? root.bubble.kernoId : -2 }
            path: Ellipse {
                width: root.width
                height: root.height
            }
            Component.onDestruction: model = 0
        }
    }
}
