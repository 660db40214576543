import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// Asks for one value. `promptDialogData` may hold a `validator(value)` that gives `error` and `message`.
DialogPanel {
    id: root

    property var promptData: CentralManager.promptDialogData

    heading: qsTr("Enter Value")
    implicitWidth: Units.dp(460)

    function accept() {
        var check = promptData && promptData.validator ? promptData.validator(_value.text) : null
        _error.text = check && check.error ? check.message : ""
        if (_error.text !== "")
            return
        CentralManager.promptDialogAccepted(_value.text, promptData)
        dialogBase.close()
    }

    function cancel() {
        CentralManager.promptDialogCancelled(promptData)
        dialogBase.close()
    }

    Keys.onEscapePressed: cancel()

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Value:") }
        DialogTextField {
            id: _value
            Layout.fillWidth: true
            focus: true
            Accessible.name: qsTr("Value")
            onAccepted: root.accept()
        }
    }
    DialogLabel {
        id: _error
        Layout.fillWidth: true
        visible: text !== ""
        wrapMode: Text.Wrap
        color: ApplicationStyle.error_text_color
    }
    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.cancel() }
        StyledButton { primary: true; text: qsTr("OK"); onClicked: root.accept() }
    }
}
