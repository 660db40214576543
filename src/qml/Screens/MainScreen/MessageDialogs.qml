import QtQuick 2.15
import QtQuick.Dialogs 1.3
import "../../Components"

// The native message boxes of the main window. Messages that come together are shown one after the other.
Item {
    id: root

    readonly property int __longestError: 500
    property var __waiting: []

    function __tell(icon, title, text) {
        var told = [_message.visible ? _message : null].concat(__waiting)
        if (told.some(function(other) { return other && other.title === title && other.text === text }))
            return
        __waiting.push({ icon: icon, title: title, text: text })
        __showNext()
    }

    function __showNext() {
        if (_message.visible || __waiting.length === 0)
            return
        var next = __waiting.shift()
        _message.icon = next.icon
        _message.title = next.title
        _message.text = next.text
        _message.open()
    }

    Connections {
        target: krnFile

        function onErrorOccurred(error) {
            var cut = error.length > root.__longestError ? error.substring(0, root.__longestError) + "..." : error
            root.__tell(StandardIcon.Critical, qsTr("An error occurred"), cut)
        }
        function onNotifyUser(noti) { root.__tell(StandardIcon.Information, qsTr("Notification"), noti) }
        function onAwaitingOpenConfirmationChanged() {
            if (krnFile.awaitingOpenConfirmation)
                _alreadyOpen.open()
        }
    }

    Connections {
        target: CentralManager
        function onShowAlert(title, message) { root.__tell(StandardIcon.NoIcon, title, message) }
    }

    MessageDialog {
        id: _message
        standardButtons: StandardButton.Ok
        onVisibleChanged: {
            if (!visible)
                Qt.callLater(root.__showNext)
        }
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
