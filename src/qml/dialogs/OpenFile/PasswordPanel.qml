import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import ".."

// Asks for the password of a project that does not open without one.
ColumnLayout {
    id: root

    property string path
    property string error

    signal accepted(string password)
    signal cancelled()

    spacing: ApplicationStyle.default_margin

    // Empties the field for another try.
    function retry(message) {
        error = message
        _password.text = ""
        _password.forceActiveFocus()
    }

    Keys.onEscapePressed: cancelled()

    onVisibleChanged: {
        if (visible)
            retry("")
    }

    DialogLabel {
        text: qsTr("Password required")
        font { pixelSize: Units.dp(20); bold: true }
    }
    DialogLabel {
        Layout.fillWidth: true
        text: qsTr("File: ") + root.path
        color: ApplicationStyle.dialog_text_color_alternative
        elide: Text.ElideMiddle
    }

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Password:") }
        DialogTextField {
            id: _password
            Layout.fillWidth: true
            clearIfWhitespaceOnlyOnEditingFinished: false
            echoMode: TextInput.Password
            Accessible.name: qsTr("Password")
            Accessible.description: qsTr("Password")
            onAccepted: root.accepted(text)
        }
    }

    DialogMessage { text: root.error }

    RowLayout {
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.cancelled() }
        StyledButton { primary: true; text: qsTr("OK"); onClicked: root.accepted(_password.text) }
    }
}
