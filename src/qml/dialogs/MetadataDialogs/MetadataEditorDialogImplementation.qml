import QtQuick 2.15
import QtQuick.Layouts 1.15
import Kernova 1.4
import ".."
import "../../Components"

// The project's properties and the values of each. It undoes only what was done in it.
DialogPanel {
    id: root

    readonly property string __newValue: "__addMetadataValue"
    property int initialUndoIndex: 0
    property bool __undidSomething: false
    property int selectedKeyId: -1
    property string message

    heading: qsTr("Edit Properties and Values")
    implicitWidth: dialogBase ? Math.min(Units.dp(650), 0.8 * dialogBase.width) : Units.dp(650)
    implicitHeight: dialogBase ? 0.75 * dialogBase.height : Units.dp(500)

    Component.onCompleted: initialUndoIndex = undoManager.index

    function updateKey(keyId, key, multipleChoice, sortValuesAlphabetically) {
        var record = _keys.findKeyWithId(keyId)
        message = record.key == key ? ""
                : key.trim() === "" ? qsTr("A property needs a name.")
                : _keys.hasKey(key) ? qsTr("Property already exists!") : ""
        if (message !== "")
            return false
        record.key = key
        record.multipleChoice = multipleChoice
        record.sortValuesAlphabetically = sortValuesAlphabetically
        undoManager.updateMetadataKey(record)
        return true
    }

    function updateValue(valueId, value) {
        var record = _values.findValueWithId(valueId)
        message = record.value == value ? ""
                : value.trim() === "" ? qsTr("A value needs a text.")
                : _values.hasValue(value) ? qsTr("Value already exists!") : ""
        if (message !== "")
            return false
        record.value = value
        undoManager.updateMetadataValue(record)
        return true
    }

    function validateNewValue(value) {
        if (value.trim() === "")
            return { error: true, message: qsTr("Enter a value.") }
        return { error: _values.hasValue(value.trim()), message: qsTr("Value already exists!") }
    }

    function __selectOther() {
        if (selectedKeyId > 0 && !_keys.findKeyWithId(selectedKeyId).key)
            selectedKeyId = -1
    }

    Keys.onEscapePressed: dialogBase.close()

    MetadataKeyModel {
        id: _keys
        sortType: 1
        onRowsRemoved: root.__selectOther()
        onModelReset: root.__selectOther()
    }
    MetadataValueModel {
        id: _values
        // 0 would stand for the values of all properties.
        keyId: root.selectedKeyId > 0 ? root.selectedKeyId : -1
    }

    Connections {
        target: CentralManager
        function onPromptDialogAccepted(value, data) {
            if (!data || data.id !== root.__newValue)
                return
            var record = instantiator.sourceMetadataValue()
            record.keyId = data.keyId
            record.value = value.trim()
            undoManager.addMetadataValue(record)
        }
    }

    headerItems: [
        IconButton {
            objectName: "undoInEditor"
            icon: "action_undo"
            iconSize: Units.dp(26)
            enabled: undoManager.canUndo && undoManager.index > root.initialUndoIndex
            tooltip: qsTr("Undo")
            onClicked: {
                root.__undidSomething = true
                undoManager.undo()
            }
        },
        IconButton {
            objectName: "redoInEditor"
            icon: "action_redo"
            iconSize: Units.dp(26)
            enabled: undoManager.canRedo && root.__undidSomething
            tooltip: qsTr("Redo")
            onClicked: undoManager.redo()
        }
    ]

    RowLayout {
        spacing: ApplicationStyle.default_dialog_margin

        MetadataEditorList {
            objectName: "editorKeys"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 4
            heading: qsTr("New Property")
            addText: qsTr("New Property and Value")
            onAddRequested: CentralManager.showInlineMetadataKeyValueEditor = 2
            emptyText: qsTr("No Properties to Display")
            model: _keys
            delegate: MetadataEditorKeyRow {
                width: ListView.view.width
                editor: root
            }
        }
        MetadataEditorList {
            objectName: "editorValues"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 3
            heading: qsTr("New Value")
            addText: qsTr("Add Value")
            addVisible: root.selectedKeyId > 0
            onAddRequested: CentralManager.promptDialogData = {
                id: root.__newValue, keyId: root.selectedKeyId, validator: root.validateNewValue
            }
            emptyText: root.selectedKeyId > 0 ? qsTr("No Values to Display") : qsTr("Select a Property to See Its Values")
            model: _values
            delegate: MetadataEditorValueRow {
                width: ListView.view.width
                editor: root
            }
        }
    }

    DialogLabel {
        objectName: "editorMessage"
        Layout.fillWidth: true
        text: root.message !== "" ? root.message : qsTr("Click on the name of a property or a value to edit it.")
        color: root.message !== "" ? ApplicationStyle.error_text_color : ApplicationStyle.dialog_text_color
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }

    RowLayout {
        Item { Layout.fillWidth: true }
        StyledButton {
            primary: true
            focus: true
            text: qsTr("Close")
            onClicked: root.dialogBase.close()
        }
    }
}
