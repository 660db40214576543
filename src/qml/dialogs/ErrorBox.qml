import QtQuick 2.15
import "../Components"

// A failure in words, in a box that is there only while there is one.
Rectangle {
    id: root

    property string text

    implicitHeight: _column.height + 2 * ApplicationStyle.default_margin
    visible: text !== ""
    radius: Units.dp(4)
    color: "#7a1f1f"
    border { width: 1; color: "#ff8a80" }

    Column {
        id: _column
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: ApplicationStyle.default_margin }
        spacing: Units.dp(4)

        PlainText {
            width: parent.width
            text: qsTr("Something went wrong...")
            color: "white"
            font { pixelSize: ApplicationStyle.dialog_text_font_size; bold: true }
        }
        PlainText {
            width: parent.width
            text: root.text
            color: "white"
            font.pixelSize: ApplicationStyle.dialog_text_font_size_small
            wrapMode: Text.Wrap
        }
    }
}
