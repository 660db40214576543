import QtQuick 2.15
import QtQuick.Layouts 1.15
import Kernova 1.4
import "../Components"

// The properties of the current source: its title and icon, and the values that it has of each.
FocusScope {
    id: root

    readonly property string __newValue: "__newMetadataValue"
    // Whose title stands in the field. It is saved for that source, whichever is current by then.
    property int __titledSource: -1

    function __saveTitle() {
        if (__titledSource > 0 && CentralManager.canMutate && _title.text.trim() !== krnFile.source(__titledSource).title)
            undoManager.updateSourceTitle(__titledSource, _title.text.trim())
    }

    function __follow() {
        var source = krnFile.source(CentralManager.currentSourceId)
        __titledSource = CentralManager.currentSourceId
        _title.text = source.title || ""
        _header.sourceIcon = source.icon || "md_generic"
    }

    function __askForValue(key) {
        CentralManager.promptDialogData = {
            id: __newValue, key: key, sourceId: CentralManager.currentSourceId,
            validator: function(value) { return { error: value.trim() === "", message: qsTr("Enter a value.") } }
        }
    }

    Component.onCompleted: __follow()

    Connections {
        target: CentralManager
        function onCurrentSourceIdChanged() {
            if (_title.activeFocus)
                root.__saveTitle()
            root.__follow()
        }
        function onHasFileOpenChanged() { root.__follow() }
        function onPromptDialogAccepted(value, data) {
            if (data && data.id === root.__newValue)
                undoManager.addMetadataKeyAndValue(data.key, value.trim(), data.sourceId)
        }
    }
    Connections {
        target: krnFile.getSourceModel()
        function onModelUpdated(model) {
            if (model.sourceId === CentralManager.currentSourceId)
                root.__follow()
        }
    }

    MetadataKeyModel { id: _keys }

    Rectangle {
        anchors.fill: parent
        color: ApplicationStyle.source_background_color
    }

    ColumnLayout {
        anchors { fill: parent; margins: ApplicationStyle.default_margin }
        spacing: ApplicationStyle.default_margin

        MetadataPanelHeader {
            id: _header
            Layout.fillWidth: true
        }

        GridLayout {
            columns: 2
            columnSpacing: ApplicationStyle.default_margin

            DialogLabel { text: qsTr("Title:"); font.pixelSize: ApplicationStyle.dialog_text_font_size_small }
            StyledTextField {
                id: _title
                objectName: "sourceTitle"
                Layout.fillWidth: true
                implicitHeight: Units.dp(30)
                enabled: CentralManager.canMutate && root.__titledSource > 0
                font.pixelSize: ApplicationStyle.dialog_text_font_size_small
                Accessible.name: qsTr("Title of the source")
                onEditingFinished: root.__saveTitle()
            }
            DialogLabel { text: qsTr("Order:"); font.pixelSize: ApplicationStyle.dialog_text_font_size_small }
            ArrowComboBox {
                Layout.fillWidth: true
                objectName: "propertyOrder"
                activeFocusOnTab: true
                model: _keys.getSortTypesDropDown()
                textRole: "name"
                tooltip: qsTr("Change sort order of property keys.")
                onActivated: _keys.sortType = model[index].value
            }
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            StyledScrollView {
                anchors.fill: parent
                horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

                ListView {
                    id: _list
                    objectName: "sourceProperties"
                    model: _keys
                    clip: true
                    spacing: Units.dp(25)
                    boundsBehavior: Flickable.StopAtBounds
                    delegate: MetadataKeyRow {
                        width: _list.width - ApplicationStyle.default_margin
                        onNewValueRequested: root.__askForValue(key)
                    }
                }
            }
            PlainText {
                anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                visible: _list.count === 0
                text: qsTr("No Properties to Display")
                color: ApplicationStyle.source_text_color
                opacity: 0.75
                font.pixelSize: ApplicationStyle.dialog_text_font_size
            }
        }

        RowLayout {
            spacing: ApplicationStyle.default_margin

            StyledButton {
                objectName: "quickProperty"
                text: "+"
                tooltip: qsTr("Quickly add a new property.")
                enabled: CentralManager.canMutate
                onClicked: CentralManager.showInlineMetadataKeyValueEditor = 1
            }
            StyledButton {
                Layout.fillWidth: true
                text: qsTr("Properties and Values Editor")
                enabled: CentralManager.canMutate
                onClicked: CentralManager.showMetadataEditor = true
            }
        }
    }
}
