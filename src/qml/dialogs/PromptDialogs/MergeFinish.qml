import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import "../OpenFile"

// What the result of a merge needs: an author or a title, and a password if wanted.
ColumnLayout {
    id: root

    readonly property string title: _text.text.trim()
    readonly property string author: _text.text.trim()
    readonly property alias password: _fields.password
    readonly property alias passwordsMatch: _fields.passwordsMatch

    signal accepted()

    spacing: ApplicationStyle.default_margin

    Component.onCompleted: _text.text = CentralManager.cloud ? "" : CentralManager.currentAuthor

    onVisibleChanged: {
        if (visible)
            _text.forceActiveFocus()
    }

    RowLayout {
        spacing: ApplicationStyle.default_dialog_margin

        DialogLabel {
            Layout.preferredWidth: Math.max(Units.dp(150), implicitWidth)
            text: CentralManager.cloud ? qsTr("Merged Project title:") : qsTr("Author:")
        }
        DialogTextField {
            id: _text
            objectName: "mergeResult"
            Layout.fillWidth: true
            Accessible.name: CentralManager.cloud ? qsTr("Merged Project title") : qsTr("Author")
            onAccepted: root.accepted()
        }
    }
    NewProjectFields {
        id: _fields
        Layout.fillWidth: true
        asksForQuestions: false
    }
}
