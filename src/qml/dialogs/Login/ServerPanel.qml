import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import ".."

// Which server holds the cloud's projects: one's own can be set, tried and taken away.
ColumnLayout {
    id: root

    property string result
    property bool failed: false
    property bool testing: false
    readonly property bool __fixed: appHelper.cloudHostFixed

    signal finished()

    spacing: ApplicationStyle.default_margin

    function __tell(sentence, isFailure) {
        failed = isFailure
        result = sentence
    }

    function save() {
        var fault = appHelper.setCloudHost(_host.text)
        if (fault !== "")
            __tell(fault, true)
        else
            finished()
    }

    function test() {
        __tell(qsTr("Asking the server..."), false)
        testing = true
        _testTimer.start()
    }

    Timer {
        id: _testTimer
        interval: 50
        onTriggered: {
            var test = appHelper.testCloudHost(_host.text)
            root.testing = false
            root.__tell(test.sentence, !test.passed)
        }
    }

    onVisibleChanged: {
        if (!visible)
            return
        result = ""
        _host.text = appHelper.cloudHost
        _host.forceActiveFocus()
    }

    Keys.onEscapePressed: finished()

    DialogLabel {
        Layout.fillWidth: true
        text: root.__fixed ? qsTr("The server is named by the environment of this computer, and can't be changed here.")
                           : qsTr("Your projects can live on a server of your own. Leave the field empty to have none.")
        color: ApplicationStyle.dialog_text_color_alternative
        wrapMode: Text.Wrap
    }

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Server:") }
        DialogTextField {
            id: _host
            objectName: "server"
            Layout.fillWidth: true
            readOnly: root.__fixed
            placeholderText: "cloud.example.org"
            inputMethodHints: Qt.ImhUrlCharactersOnly
            Accessible.name: qsTr("Server")
            onTextChanged: root.result = ""
            onAccepted: root.__fixed ? root.finished() : root.save()
        }
    }

    DialogMessage {
        text: root.result
        failed: root.failed
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        StyledButton {
            enabled: _host.text.trim() !== "" && !root.testing
            text: qsTr("Test")
            onClicked: root.test()
        }
        StyledButton {
            visible: !root.__fixed
            enabled: _host.text !== ""
            text: qsTr("Clear")
            onClicked: {
                _host.text = ""
                _host.forceActiveFocus()
            }
        }
        Item { Layout.fillWidth: true }
        StyledButton {
            text: root.__fixed ? qsTr("Close") : qsTr("Cancel")
            onClicked: root.finished()
        }
        StyledButton {
            visible: !root.__fixed
            primary: true
            enabled: !root.testing
            text: qsTr("Save")
            onClicked: root.save()
        }
    }
}
