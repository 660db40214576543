import QtQuick 2.15
import "../../Components"

// A value of the selected property.
RowHighlight {
    id: root

    property var editor: null
    readonly property int valueId: model.valueId

    height: Units.dp(36)
    selected: _name.activeFocus

    NameInput {
        id: _name
        objectName: "valueName"
        anchors { left: parent.left; right: _delete.left; verticalCenter: parent.verticalCenter; margins: Units.dp(8) }
        stored: model.value === undefined ? "" : String(model.value)
        save: function(text) { return root.editor.updateValue(root.valueId, text) }
        Accessible.name: qsTr("Value")
    }
    IconButton {
        id: _delete
        objectName: "deleteValue"
        anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        icon: "delete"
        iconSize: Units.dp(18)
        enabled: CentralManager.canMutate
        tooltip: qsTr("Delete this value.")
        onClicked: undoManager.deleteMetadataValue(root.valueId)
    }
}
