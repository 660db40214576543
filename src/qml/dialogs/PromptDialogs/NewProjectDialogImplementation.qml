import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import ".."

// Writes the open project, or a part of it, into the cloud under another title.
DialogPanel {
    id: root

    property int kind: 1
    property bool saving: false
    readonly property var __headings: [qsTr("Save Project As"), qsTr("Export Project (Sources Only)"),
                                       qsTr("Export Project (Structure Only)")]

    heading: __headings[Math.max(1, kind) - 1]
    implicitWidth: Units.dp(520)
    enabled: !saving

    Component.onCompleted: kind = CentralManager.saveAsRemote

    Keys.onEscapePressed: dialogBase.close()

    function save() {
        if (_name.text.trim() === "" || saving)
            return
        _error.text = ""
        saving = true
        _saveTimer.start()
    }

    function __saveNow() {
        var name = _name.text.trim()
        CentralManager.switchingProject = true
        var result = kind === 1 ? krnFile.saveAsRemote(name)
                   : kind === 2 ? krnFile.exportKRNSources(name) : krnFile.exportKRNStructure(name)
        CentralManager.switchingProject = false
        saving = false
        if (result[0])
            dialogBase.close()
        else
            _error.text = result[1]
    }

    // Saving blocks, so the label gets a moment to appear.
    Timer {
        id: _saveTimer
        interval: 50
        onTriggered: root.__saveNow()
    }

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Save as:") }
        DialogTextField {
            id: _name
            objectName: "saveAsName"
            Layout.fillWidth: true
            focus: true
            Accessible.name: qsTr("Save as")
            onAccepted: root.save()
        }
    }
    DialogMessage { id: _error }
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
            enabled: _name.text.trim() !== ""
            text: root.saving ? qsTr("Saving...") : qsTr("Save")
            onClicked: root.save()
        }
    }
}
