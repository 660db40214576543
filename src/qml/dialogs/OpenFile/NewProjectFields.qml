import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../../Components"

// What a new project needs beside its name: a password if wanted, and the kind of its questions.
GridLayout {
    id: root

    // Not of a project whose texts come from elsewhere.
    property bool asksForQuestions: true
    readonly property string password: _protected.checked ? _password.text : ""
    readonly property bool structured: _structured.checked
    readonly property bool passwordsMatch: !_protected.checked || _password.text === _repeat.text

    columns: 2
    columnSpacing: ApplicationStyle.default_dialog_margin
    rowSpacing: ApplicationStyle.default_margin

    DialogLabel { text: qsTr("Password Protected"); Layout.preferredWidth: Units.dp(150) }
    Switch {
        id: _protected
        Accessible.name: qsTr("Password Protected")
        style: ApplicationStyle.switch_style
        activeFocusOnTab: true
    }

    DialogLabel { visible: _protected.checked; text: qsTr("Password:") }
    DialogTextField {
        id: _password
        Accessible.name: qsTr("Password")
        Accessible.description: qsTr("Password")
        Layout.fillWidth: true
        visible: _protected.checked
        clearIfWhitespaceOnlyOnEditingFinished: false
        echoMode: TextInput.Password
    }

    DialogLabel { visible: _protected.checked; text: qsTr("Password Repeat:") }
    DialogTextField {
        id: _repeat
        Accessible.name: qsTr("Password Repeat")
        Accessible.description: qsTr("Password Repeat")
        Layout.fillWidth: true
        visible: _protected.checked
        clearIfWhitespaceOnlyOnEditingFinished: false
        echoMode: TextInput.Password
    }

    Item { visible: _match.visible; width: 1; height: 1 }
    DialogLabel {
        id: _match
        Layout.fillWidth: true
        visible: _protected.checked && (_password.text !== "" || _repeat.text !== "")
        text: root.passwordsMatch ? qsTr("Passwords match.") : qsTr("Passwords do not match.")
        color: root.passwordsMatch ? ApplicationStyle.dialog_text_color_alternative : ApplicationStyle.error_text_color
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }

    DialogLabel { visible: root.asksForQuestions; text: qsTr("Structured Questions") }
    Switch {
        id: _structured
        visible: root.asksForQuestions
        Accessible.name: qsTr("Structured Questions")
        style: ApplicationStyle.switch_style
        activeFocusOnTab: true
    }
}
