import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A narrow combo box: it shows a short form of what is chosen, and no arrow.
ComboBox {
    id: root

    property string tooltip
    // One for each entry, or none to show the entries themselves.
    property var shortTexts: []

    implicitHeight: Units.dp(30)
    activeFocusOnTab: true
    Accessible.name: tooltip

    style: ComboBoxStyle {
        padding { left: 0; right: 0 }
        background: FieldFrame {
            implicitWidth: Units.dp(36)
            focused: control.activeFocus
        }
        label: PlainText {
            text: root.shortTexts.length > 0 ? root.shortTexts[control.currentIndex] || "" : control.currentText.trim()
            color: ApplicationStyle.dialog_text_color_alternative
            font.pixelSize: ApplicationStyle.dialog_text_font_size_small
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        __dropDownStyle: Component { ThemedMenuStyle { __menuItemType: "comboboxitem" } }
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
