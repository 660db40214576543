import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A combo box in the colours of the theme.
ComboBox {
    id: root

    property string tooltip

    implicitHeight: Units.dp(30)

    style: ComboBoxStyle {
        textColor: ApplicationStyle.dialog_text_color_alternative
        selectionColor: "#80B3DB"
        selectedTextColor: "black"
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
        background: Rectangle {
            implicitWidth: Units.dp(120)
            radius: Units.dp(4)
            color: ApplicationStyle.textfield_background_color
            border {
                width: control.activeFocus ? 2 : 1
                color: control.activeFocus ? ApplicationStyle.orrange_button_color : ApplicationStyle.border_color
            }
            Text {
                anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                text: "\u25be"
                color: ApplicationStyle.dialog_text_color_alternative
                font.pixelSize: ApplicationStyle.dialog_text_font_size_small
            }
        }
        label: Text {
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
        __dropDownStyle: Component { ThemedMenuStyle { __menuItemType: "comboboxitem" } }
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
