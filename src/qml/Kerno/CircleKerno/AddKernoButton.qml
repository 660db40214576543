import QtQuick 2.15
import "../../Components"
import "../../Utils.js" as Utils

// Makes a kerno at a click, and codes a passage that is dropped on it into a new kerno.
Image {
    id: root

    property bool dropHovered: false
    property bool takesDrops: false

    width: Units.dp(60)
    height: Units.dp(60)
    source: "qrc:///qml/images/add-kerno-button.png"
    mipmap: true
    enabled: CentralManager.canMutate
    opacity: CentralManager.showOverlapViewForKernoId > 0 ? 0 : enabled ? 1.0 : 0.6
    visible: opacity !== 0
    scale: dropHovered && enabled ? 1.15 : _mouse.containsMouse ? 1.05 : 1.0

    Behavior on opacity { NumberAnimation {} }
    Behavior on scale { NumberAnimation { duration: 100 } }

    function addKerno() {
        var position = appHelper.calculateNewKernoPosition(CentralManager.canvasBaseWidth - 50,
                                                           CentralManager.canvasBaseHeight - 50)
        undoManager.addKerno({ parentKernoId: CentralManager.parentForNew, x: position.x, y: position.y })
    }

    // `source` is the item of a text drag.
    function codeIntoNewKerno(source) {
        if (!CentralManager.canMutate)
            return
        var kerno = instantiator.kerno(true)
        var highlight = Utils.fillPassage(instantiator.highlight(), source)
        highlight.kernoId = kerno.kernoId
        var position = appHelper.calculateNewKernoPosition(CentralManager.canvasBaseWidth,
                                                           CentralManager.canvasBaseHeight)
        kerno.x = position.x
        kerno.y = position.y
        undoManager.addHighlightToNewKerno(highlight, kerno)
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

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.addKerno()
    }

    HoverToolTip {
        anchorItem: root
        text: qsTr("Add a kerno, or drop a passage here to code it into a new one.")
        shown: _mouse.containsMouse && !_mouse.pressed
    }
}
