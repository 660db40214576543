import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

TextField {
    id: root

    // A text of blanks alone is taken for no text when the editing ends.
    property bool clearIfWhitespaceOnlyOnEditingFinished: false

    implicitHeight: Units.dp(34)
    selectByMouse: true
    font.pixelSize: ApplicationStyle.dialog_text_font_size

    onEditingFinished: {
        if (clearIfWhitespaceOnlyOnEditingFinished && text !== "" && text.trim() === "")
            text = ""
    }

    style: TextFieldStyle {
        padding { left: Units.dp(8); right: Units.dp(8) }
        textColor: ApplicationStyle.dialog_text_color_alternative
        placeholderTextColor: Qt.rgba(textColor.r, textColor.g, textColor.b, 0.55)
        selectionColor: "#80B3DB"
        selectedTextColor: "black"
        background: Rectangle {
            radius: Units.dp(4)
            color: ApplicationStyle.textfield_background_color
            opacity: control.enabled ? 1.0 : 0.5
            border {
                width: control.activeFocus ? 2 : 1
                color: control.activeFocus ? ApplicationStyle.orrange_button_color : ApplicationStyle.border_color
            }
        }
    }
}
