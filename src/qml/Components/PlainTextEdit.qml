import QtQuick 2.15
import "."

// Text as it stands, to be selected, and edited where it isn't read-only.
TextEdit {
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    selectByMouse: true
    Accessible.role: Accessible.EditableText
    Accessible.readOnly: readOnly
    selectionColor: ApplicationStyle.selection_color
    selectedTextColor: ApplicationStyle.selected_text_color
}
