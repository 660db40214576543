import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// A property: its name, and how its values are taken and ordered.
RowHighlight {
    id: root

    property var editor: null
    readonly property int keyId: model.keyId
    readonly property bool multipleChoice: !!model.multipleChoice
    readonly property bool sortsValues: !!model.sortValuesAlphabetically

    height: Units.dp(68)
    selected: editor.selectedKeyId === keyId
    hovered: _mouse.containsMouse

    function __save(key, multipleChoice, sorts) {
        return editor.updateKey(keyId, key, multipleChoice, sorts)
    }

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.editor.selectedKeyId = root.keyId
    }

    NameInput {
        id: _name
        objectName: "keyName"
        anchors { left: parent.left; right: _delete.left; top: parent.top; margins: Units.dp(8) }
        stored: model.key || ""
        save: function(text) { return root.__save(text, root.multipleChoice, root.sortsValues) }
        Accessible.name: qsTr("Name of the property")
        onActiveFocusChanged: {
            if (activeFocus)
                root.editor.selectedKeyId = root.keyId
        }
    }
    IconButton {
        id: _delete
        objectName: "deleteKey"
        anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: _name.verticalCenter }
        icon: "delete"
        iconSize: Units.dp(18)
        enabled: CentralManager.canMutate
        tooltip: qsTr("Delete this property.")
        onClicked: undoManager.deleteMetadataKey(root.keyId)
    }
    Row {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: Units.dp(8) }
        spacing: Units.dp(12)

        EditorSwitch {
            objectName: "multipleChoice"
            text: qsTr("Multiple Choice")
            stored: root.multipleChoice
            onToggled: root.__save(_name.stored, !root.multipleChoice, root.sortsValues)
        }
        EditorSwitch {
            objectName: "sortsValues"
            text: qsTr("A-Z")
            stored: root.sortsValues
            onToggled: root.__save(_name.stored, root.multipleChoice, !root.sortsValues)
        }
    }
}
