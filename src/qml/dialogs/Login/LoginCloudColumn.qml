import QtQuick 2.15
import QtQuick.Layouts 1.15
import Qt.labs.settings 1.0
import "../../Components"
import ".."

// Work on a server: signs in with an account. The password is sent, and kept nowhere.
ColumnLayout {
    id: root

    property bool signingIn: false
    property string error
    property string email
    // A label stands nearer to its field than to what is above it.
    readonly property real __labelGap: ApplicationStyle.default_margin / 2
    readonly property bool __complete: _email.text.trim() !== "" && _password.text !== ""

    signal finished()

    spacing: ApplicationStyle.default_margin

    Settings {
        property alias email: root.email
    }

    Component.onCompleted: _email.text = email

    function takeFocus() {
        (email === "" ? _email : _password).forceActiveFocus()
    }

    function __tryAgain() {
        _password.forceActiveFocus()
        _password.selectAll()
    }

    function signIn() {
        if (signingIn || !__complete)
            return
        error = ""
        signingIn = true
        _signInTimer.start()
    }

    function __signIn() {
        var address = _email.text.trim()
        var login = appHelper.login(address, _password.text)
        if (!login.status) {
            error = login.message
            return false
        }
        email = address
        CentralManager.cloud = true
        CentralManager.currentAuthor = JSON.parse(login.value).account.name
        if (!appHelper.connectToServer(true)) {
            error = qsTr("Unable to connect to server. Please try again later...")
            return false
        }
        return true
    }

    // A part of it blocks, so the label gets a moment to appear.
    Timer {
        id: _signInTimer
        interval: 50
        onTriggered: {
            var signedIn = root.__signIn()
            root.signingIn = false
            if (signedIn)
                root.finished()
            else
                root.__tryAgain()
        }
    }

    LoginHeading {
        title: qsTr("Kernova Cloud")
        subtitle: qsTr("Projects on remote server")
        picture: "qrc:///qml/images/cloud.png"
    }

    DialogLabel {
        Layout.topMargin: ApplicationStyle.default_margin
        Layout.bottomMargin: -root.__labelGap
        text: qsTr("Email:")
    }
    DialogTextField {
        id: _email
        objectName: "email"
        Layout.fillWidth: true
        focus: root.email === ""
        enabled: !root.signingIn
        inputMethodHints: Qt.ImhEmailCharactersOnly
        Accessible.name: qsTr("Email")
        onAccepted: root.__complete ? root.signIn() : _password.forceActiveFocus()
    }

    DialogLabel {
        Layout.topMargin: ApplicationStyle.default_margin / 2
        Layout.bottomMargin: -root.__labelGap
        text: qsTr("Password:")
    }
    DialogTextField {
        id: _password
        objectName: "password"
        Layout.fillWidth: true
        focus: root.email !== ""
        enabled: !root.signingIn
        clearIfWhitespaceOnlyOnEditingFinished: false
        echoMode: TextInput.Password
        Accessible.name: qsTr("Password")
        Accessible.description: qsTr("Password")
        onAccepted: root.signIn()
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        StyledButton {
            text: qsTr("Manage Account")
            onClicked: CentralManager.pageOpened(appHelper.manageAccount())
        }
        StyledButton {
            Layout.fillWidth: true
            primary: true
            enabled: root.__complete && !root.signingIn
            text: root.signingIn ? qsTr("Signing In...") : qsTr("Sign In")
            onClicked: root.signIn()
        }
    }

    ErrorBox {
        Layout.fillWidth: true
        text: root.error
    }
}
