import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A text of several lines in a dialog.
TextArea {
    id: root

    wrapMode: TextEdit.Wrap
    tabChangesFocus: true
    frameVisible: true
    highlightOnFocus: false
    font.pixelSize: ApplicationStyle.dialog_text_font_size

    style: TextAreaStyle {
        textColor: ApplicationStyle.dialog_text_color_alternative
        selectionColor: ApplicationStyle.selection_color
        selectedTextColor: ApplicationStyle.selected_text_color
        backgroundColor: "transparent"
        textMargin: Units.dp(8)
        transientScrollBars: false
        frame: FieldFrame { focused: control.activeFocus }
        corner: Item {}
        incrementControl: Item {}
        decrementControl: Item {}
        scrollBarBackground: ScrollTrough { size: ApplicationStyle.scroll_bar_size }
        handle: ScrollHandle {
            size: ApplicationStyle.scroll_bar_size
            baseColor: ApplicationStyle.orrange_button_color
            pressed: styleData.pressed
            horizontal: styleData.horizontal
            view: control.flickableItem
        }
    }
}
