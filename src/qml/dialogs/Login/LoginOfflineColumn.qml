import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import ".."

// Local work: starts the service on this computer.
ColumnLayout {
    id: root

    property bool starting: false
    // Whether this is the only way on: the keyboard begins here.
    property bool alone: true
    property string error

    signal finished()

    spacing: ApplicationStyle.default_margin

    function takeFocus() { _continue.forceActiveFocus() }

    function start() {
        if (starting)
            return
        error = ""
        starting = true
        _startTimer.start()
    }

    // The start blocks, so the label gets a moment to appear.
    Timer {
        id: _startTimer
        interval: 50
        onTriggered: {
            var connected = appHelper.connectToServer(false)
            root.starting = false
            if (connected) {
                CentralManager.cloud = false
                root.finished()
            } else {
                root.error = qsTr("Unable to connect to server. Please try again later...")
            }
        }
    }

    LoginHeading {
        title: qsTr("Kernova Offline")
        subtitle: qsTr("Projects on your computer")
        picture: "qrc:///qml/images/kernova.png"
    }

    StyledButton {
        id: _continue
        Layout.fillWidth: true
        Layout.topMargin: ApplicationStyle.default_margin
        primary: root.alone
        focus: root.alone
        enabled: !root.starting
        text: root.starting ? qsTr("Starting local server...") : qsTr("Continue with local storage")
        onClicked: root.start()
    }

    ErrorBox {
        Layout.fillWidth: true
        text: root.error
    }
}
