import QtQuick 2.15
import "../../Components"

// Makes a kerno at a click, and codes a passage that is dropped on it into a new kerno.
Clickable {
    id: root

    property bool dropHovered: false
    property bool takesDrops: false

    width: Units.dp(60)
    height: Units.dp(60)
    tooltip: qsTr("Add a kerno, or drop a passage here to code it into a new one.")
    name: qsTr("Add Kerno")
    ring.radius: width / 2
    enabled: CentralManager.canMutate
    opacity: CentralManager.showOverlapViewForKernoId > 0 ? 0 : enabled ? 1.0 : 0.6
    visible: opacity !== 0
    scale: dropHovered && enabled ? 1.15 : hovered ? 1.05 : 1.0

    Behavior on opacity { NumberAnimation {} }
    Behavior on scale { NumberAnimation { duration: 100 } }

    function addKerno() {
        var position = appHelper.calculateNewKernoPosition(CentralManager.canvasBaseWidth - 50,
                                                           CentralManager.canvasBaseHeight - 50)
        undoManager.addKerno({ parentKernoId: CentralManager.parentForNew, x: position.x, y: position.y })
    }

    // `source` is the item of a text drag.
    function codeIntoNewKerno(source) {
        CentralManager.codeIntoNewKerno(source, "")
    }

    DropArea {
        anchors.fill: parent
        keys: ["text"]
        enabled: root.takesDrops
        onEntered: root.dropHovered = true
        onExited: root.dropHovered = false
        onDropped: {
            root.dropHovered = false
            root.codeIntoNewKerno(drop.source)
        }
    }

    onClicked: addKerno()

    Image {
        anchors.fill: parent
        mipmap: true
        source: "qrc:///qml/images/add-kerno-button.png"
    }
}
