import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "Login"

// Where the session's projects live: on a server, when one is known, or on this computer.
DialogPanel {
    id: root

    property bool showServer: false
    readonly property bool __hasCloud: appHelper.cloudHost !== ""
    readonly property bool __busy: (_cloud.item && _cloud.item.signingIn) || _offline.starting

    heading: showServer ? qsTr("Server") : qsTr("Sign In")
    implicitWidth: __hasCloud && !showServer ? Units.dp(820) : Units.dp(520)

    // Coming back, the keyboard begins where it began at first.
    onShowServerChanged: {
        if (!showServer)
            (_cloud.item ? _cloud.item : _offline).takeFocus()
    }

    ServerPanel {
        Layout.fillWidth: true
        visible: root.showServer
        onFinished: root.showServer = false
    }

    RowLayout {
        Layout.fillWidth: true
        visible: !root.showServer
        spacing: ApplicationStyle.default_dialog_margin

        Loader {
            id: _cloud
            Layout.alignment: Qt.AlignTop
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            visible: active
            active: root.__hasCloud
            focus: active
            enabled: !_offline.starting
            sourceComponent: LoginCloudColumn { onFinished: root.dialogBase.close() }
        }
        Rectangle {
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            visible: root.__hasCloud
            color: ApplicationStyle.border_color
            opacity: 0.5
        }
        LoginOfflineColumn {
            id: _offline
            Layout.alignment: Qt.AlignTop
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            enabled: !(_cloud.item && _cloud.item.signingIn)
            alone: !root.__hasCloud
            onFinished: root.dialogBase.close()
        }
    }

    StyledButton {
        Layout.topMargin: ApplicationStyle.default_margin
        visible: !root.showServer
        enabled: !root.__busy
        text: qsTr("Server...")
        onClicked: root.showServer = true
    }
}
