import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../../Components"

// What can be done with a kerno of the hierarchy.
StyledMenu {
    id: root

    property int kernoId: -1
    property bool isMain: false

    signal deleted(int kernoId)

    MenuItem {
        text: qsTr("Edit")
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showPreferencesDialogForKerno = root.kernoId
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Delete")
        enabled: CentralManager.canMutate && !root.isMain
        onTriggered: {
            root.deleted(root.kernoId)
            undoManager.deleteKerno(root.kernoId)
        }
    }
}
