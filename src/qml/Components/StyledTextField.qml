import QtQuick 2.15
import QtQuick.Window 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

TextField {
    id: root

    // A text of blanks alone is taken for no text when the editing ends.
    property bool clearIfWhitespaceOnlyOnEditingFinished: false

    // What has been entered can't be used as it is.
    property bool invalid: false

    implicitHeight: Units.dp(34)
    selectByMouse: true
    font.pixelSize: ApplicationStyle.dialog_text_font_size

    // Where nobody writes, a long text shows its beginning; who only leaves the window for a while goes on there.
    function __showBeginning() {
        if (activeFocus || !Window.active)
            return
        // Only a cursor that moves is brought into sight.
        cursorPosition = text.length
        cursorPosition = 0
    }

    onTextChanged: Qt.callLater(__showBeginning)
    onWidthChanged: Qt.callLater(__showBeginning)
    onActiveFocusChanged: Qt.callLater(__showBeginning)
    onEditingFinished: {
        if (clearIfWhitespaceOnlyOnEditingFinished && text !== "" && text.trim() === "")
            text = ""
    }

    style: TextFieldStyle {
        padding { left: Units.dp(8); right: Units.dp(8) }
        textColor: ApplicationStyle.dialog_text_color_alternative
        placeholderTextColor: Qt.rgba(textColor.r, textColor.g, textColor.b, 0.55)
        selectionColor: ApplicationStyle.selection_color
        selectedTextColor: ApplicationStyle.selected_text_color
        background: FieldFrame {
            opacity: control.enabled ? 1.0 : 0.5
            focused: control.activeFocus
            invalid: control.invalid
        }
    }
}
