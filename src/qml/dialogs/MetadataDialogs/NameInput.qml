import QtQuick 2.15
import "../../Components"

// A name that is edited in its place. What can't be saved gives way to the stored name.
TextInput {
    id: root

    property string stored
    // Saves a changed name; false where it can't be saved.
    property var save: function(text) { return true }

    text: stored
    readOnly: !CentralManager.canMutate
    clip: true
    activeFocusOnTab: true
    Accessible.role: Accessible.EditableText
    Accessible.name: qsTr("Name")
    selectByMouse: true
    selectionColor: ApplicationStyle.selection_color
    selectedTextColor: ApplicationStyle.selected_text_color
    color: text !== stored ? ApplicationStyle.orange_text_color : ApplicationStyle.dialog_text_color_alternative
    font.pixelSize: ApplicationStyle.dialog_text_font_size

    Component.onCompleted: cursorPosition = 0
    onStoredChanged: {
        text = stored
        cursorPosition = activeFocus ? text.length : 0
    }
    onEditingFinished: {
        if (text !== stored && !save(text))
            text = stored
    }
    onActiveFocusChanged: {
        if (!activeFocus)
            cursorPosition = 0
    }
    Keys.onEscapePressed: {
        event.accepted = text !== stored
        text = stored
    }
}
