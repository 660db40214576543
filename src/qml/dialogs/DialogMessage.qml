import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// What a dialog says of what it does or could not do; readers of the screen speak it at once.
DialogLabel {
    property bool failed: true

    Layout.fillWidth: true
    visible: text !== ""
    wrapMode: Text.Wrap
    color: failed ? ApplicationStyle.error_text_color : ApplicationStyle.dialog_text_color
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
