import QtQuick 2.15
import QtQuick.Dialogs 1.3
import "../../Components"

// The native message boxes of the main window.
Item {
    id: root

    readonly property int __longestError: 500

    Connections {
        target: krnFile

        function onErrorOccurred(error) {
            _error.text = error.length > root.__longestError ? error.substring(0, root.__longestError) + "..." : error
            _error.open()
        }
        function onNotifyUser(noti) {
            _notification.text = noti
            _notification.open()
        }
        function onAwaitingOpenConfirmationChanged() {
            if (krnFile.awaitingOpenConfirmation)
                _alreadyOpen.open()
        }
    }

    Connections {
        target: CentralManager

        function onShowAlert(title, message) {
            _alert.title = title
            _alert.text = message
            _alert.open()
        }
    }

    MessageDialog {
        id: _error
        title: qsTr("An error occurred")
        icon: StandardIcon.Critical
    }

    MessageDialog {
        id: _notification
        title: qsTr("Notification")
        icon: StandardIcon.Information
    }

    MessageDialog {
        id: _alert
        standardButtons: StandardButton.Ok
    }

    MessageDialog {
        id: _alreadyOpen
        title: qsTr("File Already Opened")
        text: qsTr("Please check that the project file is not open in another window.\n"
                   + "If this is not the case, it is safe to continue.")
        icon: StandardIcon.Question
        standardButtons: StandardButton.Yes | StandardButton.No
        onYes: krnFile.confirmOpenAlreadyOpenedFile(true)
        onNo: krnFile.confirmOpenAlreadyOpenedFile(false)
        onRejected: krnFile.confirmOpenAlreadyOpenedFile(false)
    }
}
