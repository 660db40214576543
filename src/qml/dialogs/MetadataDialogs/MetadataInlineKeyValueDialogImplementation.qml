import QtQuick 2.15
import QtQuick.Layouts 1.15
import Kernova 1.4
import ".."
import "../../Components"
import "PredefinedValues.js" as Predefined

// Makes a property with a value, and gives it to the current source or, in mode 2, leaves it at that.
DialogPanel {
    id: root

    property int mode: 1
    readonly property bool predefined: mode === 2 && _usePredefined.checked
    // Only in mode 2 is the name cut to what can be read.
    readonly property string __key: mode === 2 ? _key.text.trim() : _key.text
    readonly property string __value: _value.text.trim()
    readonly property bool __valueExists: !predefined && __value !== "" && _values.keyId > 0
                                          && _values.hasValue(__value)
    readonly property bool isValueValid: !__valueExists && _key.text.trim() !== "" && (predefined || __value !== "")

    heading: qsTr("Quick Property Editor")
    implicitWidth: Units.dp(550)

    Component.onCompleted: mode = CentralManager.showInlineMetadataKeyValueEditor

    function accept() {
        if (_key.text.trim() !== "" && (predefined || __value !== "")) {
            if (mode === 1)
                undoManager.addMetadataKeyAndValue(__key, __value, CentralManager.currentSourceId)
            else if (predefined)
                undoManager.addMetadataKeyAndValues(__key, Predefined.sets[_set.currentIndex].values)
            else
                undoManager.addMetadataKeyAndValue(__key, __value)
        }
        dialogBase.close()
    }

    Keys.onEscapePressed: dialogBase.close()

    MetadataKeyModel { id: _keys }
    MetadataValueModel {
        id: _values
        keyId: _keys.findKeyId(root.__key)
    }

    GridLayout {
        columns: 2
        columnSpacing: ApplicationStyle.default_margin
        rowSpacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Property:") }
        DialogTextField {
            id: _key
            objectName: "quickPropertyKey"
            Layout.fillWidth: true
            focus: true
            Accessible.name: qsTr("Property")
            onAccepted: nextItemInFocusChain().forceActiveFocus()
        }

        LabelledSwitch {
            id: _usePredefined
            objectName: "usePredefined"
            Layout.columnSpan: 2
            Layout.fillWidth: true
            visible: root.mode === 2
            text: qsTr("Select predefined set of values.")
        }

        DialogLabel { text: root.predefined ? qsTr("Predefined:") : qsTr("Value:") }
        DialogTextField {
            id: _value
            objectName: "quickPropertyValue"
            Layout.fillWidth: true
            visible: !root.predefined
            invalid: root.__valueExists
            Accessible.name: qsTr("Value")
            onAccepted: {
                if (!root.isValueValid)
                    root.accept()
            }
        }
        ArrowComboBox {
            id: _set
            objectName: "predefinedSet"
            Layout.fillWidth: true
            visible: root.predefined
            activeFocusOnTab: true
            model: Predefined.sets
            textRole: "text"
            Accessible.name: qsTr("Predefined")
        }
    }

    DialogLabel {
        Layout.fillWidth: true
        visible: root.__valueExists
        text: qsTr("Value already exists!")
        color: ApplicationStyle.error_text_color
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.dialogBase.close() }
        StyledButton {
            primary: true
            enabled: root.isValueValid
            text: qsTr("OK")
            onClicked: root.accept()
        }
    }
}
