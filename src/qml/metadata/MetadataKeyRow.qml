import QtQuick 2.15
import Kernova 1.4
import "../Components"

// A property, and the values of it that the current source has.
Column {
    id: root

    readonly property int keyId: model.keyId
    readonly property string key: model.key || ""

    signal newValueRequested(string key)

    spacing: Units.dp(6)

    MetadataValueModel {
        id: _values
        keyId: root.keyId
        sortAlphabetically: !!model.sortValuesAlphabetically
    }
    SourceMetadataValueComboBoxModelProxy {
        id: _choices
        sourceModel: _values
    }
    SourceMetadataModel {
        id: _own
        keyId: root.keyId
        sourceId: CentralManager.currentSourceId
    }

    Item {
        width: parent.width
        height: Units.dp(34)

        Image {
            id: _icon
            anchors.verticalCenter: parent.verticalCenter
            width: Units.dp(24)
            height: Units.dp(24)
            mipmap: true
            source: "qrc:///qml/images/%1%2.png".arg(model.multipleChoice ? "metadata_key_multi" : "metadata_key_one")
                                                .arg(ApplicationStyle.dark ? "" : "_light")
        }
        DialogLabel {
            anchors { left: _icon.right; leftMargin: Units.dp(8); right: _choice.left; rightMargin: Units.dp(8) }
            anchors.verticalCenter: parent.verticalCenter
            text: root.key
        }
        ChoiceArrow {
            id: _choice
            objectName: "propertyValues"
            anchors { right: _clear.left; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
            enabled: CentralManager.canMutate && CentralManager.currentSourceId > 0
            model: _choices
            textRole: "value"
            tooltip: qsTr("Select, change or add a new value.")
            onChosen: {
                if (index === 0)
                    root.newValueRequested(root.key)
                else
                    undoManager.addMetadata(root.keyId, _choices.get(index).valueId, CentralManager.currentSourceId)
            }
        }
        IconButton {
            id: _clear
            objectName: "clearProperty"
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            icon: "clear-value"
            enabled: CentralManager.canMutate && _tags.count > 0
            tooltip: qsTr("Clear this property's value.")
            onClicked: undoManager.deleteMetadata(root.keyId, CentralManager.currentSourceId)
        }
    }

    Flow {
        width: parent.width
        spacing: Units.dp(6)

        Repeater {
            id: _tags
            model: _own

            MetadataTag {
                maximumWidth: root.width
                text: model.value === undefined ? "" : String(model.value)
                onRemoved: undoManager.deleteMetadata(model.metadataId)
            }
        }
        PlainText {
            visible: _tags.count === 0
            height: Units.dp(24)
            verticalAlignment: Text.AlignVCenter
            text: qsTr("No Values Associated")
            color: ApplicationStyle.source_text_color
            opacity: 0.75
            font { pixelSize: ApplicationStyle.label_font_size; italic: true }
        }
    }
}
