import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import "../OpenFile"

// What a new project of the cloud needs: a title, and what every new project needs.
ColumnLayout {
    id: root

    readonly property string title: _title.text.trim()
    readonly property alias password: _fields.password
    readonly property alias structured: _fields.structured
    readonly property alias passwordsMatch: _fields.passwordsMatch

    signal accepted()

    spacing: ApplicationStyle.default_margin

    onVisibleChanged: {
        if (visible)
            _title.forceActiveFocus()
    }

    RowLayout {
        spacing: ApplicationStyle.default_dialog_margin

        DialogLabel {
            Layout.preferredWidth: Units.dp(150)
            text: qsTr("Project Title:")
        }
        DialogTextField {
            id: _title
            objectName: "projectTitle"
            Layout.fillWidth: true
            Accessible.name: qsTr("Project Title")
            onAccepted: root.accepted()
        }
    }
    NewProjectFields {
        id: _fields
        Layout.fillWidth: true
    }
}
