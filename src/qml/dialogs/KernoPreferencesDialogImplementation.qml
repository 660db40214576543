import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Dialogs 1.3
import QtQuick.Layouts 1.15
import "../Components"
import "Groups"

// The colour, title, description and groups of a kerno.
DialogPanel {
    id: root

    property int kernoId: -1
    property var kerno: null
    property color kernoColor: "white"

    heading: qsTr("Kerno Properties")
    implicitWidth: Math.min(Units.dp(620), dialogBase ? 0.75 * dialogBase.width : Units.dp(620))

    Component.onCompleted: {
        kernoId = CentralManager.showPreferencesDialogForKerno
        kerno = krnFile.kerno(kernoId)
        kernoColor = kerno.color
        _title.text = kerno.title
        _description.text = kerno.description
        if (_title.text === "" || _title.text === qsTr("Untitled"))
            _selectTimer.start()
    }

    function save() {
        var record = krnFile.kerno(kernoId)
        record.color = kernoColor
        record.title = _title.text.trim()
        record.description = _description.text.trim()
        _groups.save(record)
        dialogBase.close()
    }

    Keys.onReturnPressed: save()
    Keys.onEnterPressed: save()
    Keys.onEscapePressed: dialogBase.close()

    // The content takes the focus when it is loaded; the title takes it after that.
    Timer {
        id: _selectTimer
        interval: 0
        onTriggered: {
            _title.forceActiveFocus()
            _title.selectAll()
        }
    }

    RowLayout {
        spacing: ApplicationStyle.default_dialog_margin

        Clickable {
            objectName: "colorBox"
            Layout.preferredWidth: Units.dp(34)
            Layout.preferredHeight: Units.dp(34)
            name: qsTr("Colour")
            ring.radius: width / 2
            enabled: CentralManager.canMutate
            onClicked: _colorDialog.open()

            Rectangle {
                anchors.fill: parent
                radius: width / 2
                color: root.kernoColor
                border { width: Units.dp(2); color: Qt.darker(root.kernoColor, 2) }
                opacity: parent.hovered ? 0.85 : 1.0
            }
        }

        DialogTextField {
            id: _title
            Accessible.name: qsTr("Title")
            objectName: "kernoTitle"
            Layout.fillWidth: true
            focus: true
            readOnly: !CentralManager.canMutate
            placeholderText: qsTr("Untitled")
            onAccepted: root.save()
        }
    }

    DialogLabel { text: qsTr("Description:") }

    StyledTextArea {
        id: _description
        Accessible.name: qsTr("Description")
        objectName: "kernoDescription"
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(96)
        readOnly: !CentralManager.canMutate
        // Return makes a new line here; with Ctrl it saves.
        Keys.onReturnPressed: {
            if (event.modifiers & Qt.ControlModifier)
                root.save()
            else
                event.accepted = false
        }
    }

    DialogLabel { text: qsTr("Groups:") }

    GroupTicks {
        id: _groups
        Layout.fillWidth: true
        kernoId: root.kernoId
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton {
            text: qsTr("Cancel")
            onClicked: root.dialogBase.close()
        }
        StyledButton {
            primary: true
            enabled: CentralManager.canMutate
            text: qsTr("Save")
            onClicked: root.save()
        }
    }

    ColorDialog {
        id: _colorDialog
        title: qsTr("Kerno Colour")
        color: root.kernoColor
        onAccepted: root.kernoColor = color
    }
}
