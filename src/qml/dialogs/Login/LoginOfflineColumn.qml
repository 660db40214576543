import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// Local work: starts the service on this computer.
ColumnLayout {
    id: root

    property bool starting: false
    property string error

    signal finished()

    spacing: ApplicationStyle.default_margin

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

    RowLayout {
        spacing: ApplicationStyle.default_dialog_margin

        Image {
            Layout.preferredWidth: Units.dp(56)
            Layout.preferredHeight: Units.dp(56)
            source: "qrc:///qml/images/kernova.png"
            mipmap: true
        }

        ColumnLayout {
            spacing: Units.dp(2)

            DialogLabel {
                text: qsTr("Kernova Offline")
                font { pixelSize: Units.dp(20); bold: true }
            }
            DialogLabel {
                text: qsTr("Projects on your computer")
                color: ApplicationStyle.dialog_text_color_alternative
            }
        }
    }

    StyledButton {
        Layout.fillWidth: true
        Layout.topMargin: ApplicationStyle.default_margin
        primary: true
        focus: true
        enabled: !root.starting
        text: root.starting ? qsTr("Starting local server...") : qsTr("Continue with local storage")
        onClicked: root.start()
    }

    ErrorBox {
        Layout.fillWidth: true
        text: root.error
    }
}
