import QtQuick 2.15
import QtQuick.Window 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."
import "../Utils.js" as Utils

// A combo box in the colours of the theme.
ComboBox {
    id: root

    property string tooltip
    // A colour for each entry, or none: a disc of it stands before the entry.
    property var entryColors: []

    // What an editable box is written in.
    property Item __field: null

    // Where nobody writes, a long text shows its beginning.
    function __showBeginning() {
        if (!editable || !__field || __field.activeFocus || !Window.active)
            return
        // Only a cursor that moves is brought into sight.
        __field.cursorPosition = __field.text.length
        __field.cursorPosition = 0
    }

    implicitHeight: Units.dp(30)
    Accessible.name: tooltip
    Accessible.description: currentText

    Component.onCompleted: __field = Utils.findInArray(Array.from(children), function(child) { return !!child.tryComplete })
    onEditTextChanged: Qt.callLater(__showBeginning)
    onWidthChanged: Qt.callLater(__showBeginning)
    onActiveFocusChanged: Qt.callLater(__showBeginning)

    style: ComboBoxStyle {
        textColor: ApplicationStyle.dialog_text_color_alternative
        selectionColor: ApplicationStyle.selection_color
        selectedTextColor: ApplicationStyle.selected_text_color
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
        background: FieldFrame {
            implicitWidth: Units.dp(120)
            focused: control.activeFocus
            PlainText {
                anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                text: "\u25be"
                color: ApplicationStyle.dialog_text_color_alternative
                font.pixelSize: ApplicationStyle.dialog_text_font_size_small
            }
        }
        label: PlainText {
            text: control.currentText
            color: ApplicationStyle.dialog_text_color_alternative
            font.pixelSize: ApplicationStyle.dialog_text_font_size_small
            verticalAlignment: Text.AlignVCenter
            // The arrow stands there.
            rightPadding: Units.dp(18)
            elide: Text.ElideRight
        }
        // The field of an editable box: what is behind it is the background above.
        __editor: Item { implicitWidth: Units.dp(100); implicitHeight: Units.dp(28) }
        __dropDownStyle: Component { ThemedMenuStyle {
                __menuItemType: "comboboxitem"
                entryColors: root.entryColors
            } }
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
