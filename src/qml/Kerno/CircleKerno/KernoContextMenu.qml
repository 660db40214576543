import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// What can be done with the kerno under the mouse.
StyledMenu {
    id: root

    property Item bubble: null
    property int kernoId: -1
    property bool opened: false

    // Pops up at the centre of the bubble.
    function show(kerno) {
        bubble = kerno
        kernoId = kerno.kernoId
        opened = true
        kerno.showContextMenu = true
        popupOver(kerno)
    }

    onAboutToHide: {
        opened = false
        if (bubble)
            bubble.showContextMenu = false
        bubble = null
    }

    MenuItem {
        text: qsTr("Overview")
        onTriggered: CentralManager.showHierarchyViewForKerno = root.kernoId
    }
    MenuItem {
        text: qsTr("Overlap")
        onTriggered: CentralManager.showOverlapViewForKernoId = root.kernoId
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Edit")
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showPreferencesDialogForKerno = root.kernoId
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Merge")
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showMergeDialogForKernoId = root.kernoId
    }
    MenuItem {
        text: qsTr("Duplicate")
        enabled: CentralManager.canMutate
        onTriggered: undoManager.duplicateKerno(root.kernoId)
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Delete")
        enabled: CentralManager.canMutate
        onTriggered: undoManager.deleteKerno(root.kernoId)
    }
}
