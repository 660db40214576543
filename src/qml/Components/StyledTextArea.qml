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
        selectionColor: "#80B3DB"
        selectedTextColor: "black"
        backgroundColor: "transparent"
        textMargin: Units.dp(8)
        transientScrollBars: false
        frame: Rectangle {
            radius: Units.dp(4)
            color: ApplicationStyle.textfield_background_color
            border {
                width: control.activeFocus ? 2 : 1
                color: control.activeFocus ? ApplicationStyle.orrange_button_color : ApplicationStyle.border_color
            }
        }
        corner: Item {}
        incrementControl: Item {}
        decrementControl: Item {}
        scrollBarBackground: Rectangle {
            implicitWidth: ApplicationStyle.scroll_bar_size
            implicitHeight: ApplicationStyle.scroll_bar_size
            color: "white"
            opacity: 0.6
        }
        handle: Rectangle {
            implicitWidth: ApplicationStyle.scroll_bar_size
            implicitHeight: ApplicationStyle.scroll_bar_size
            radius: ApplicationStyle.scroll_bar_size / 2
            color: ApplicationStyle.orrange_button_color
        }
    }
}
