import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "../Components"

// The last searches behind an arrow.
ComboBox {
    id: root

    property var entries: []

    signal chosen(var data)

    model: entries.map(function(entry) { return entry.text })
    currentIndex: -1
    enabled: count > 0
    activeFocusOnTab: true
    Accessible.name: qsTr("Search History")

    onModelChanged: currentIndex = -1
    onActivated: {
        var entry = entries[index]
        currentIndex = -1
        if (entry)
            chosen(entry.data)
    }

    style: ComboBoxStyle {
        background: FieldFrame {
            implicitWidth: Units.dp(34)
            implicitHeight: Units.dp(34)
            focused: control.activeFocus
            opacity: control.enabled ? 1.0 : 0.5
            PlainText {
                anchors.centerIn: parent
                text: "\u25be"
                color: ApplicationStyle.dialog_text_color_alternative
                font.pixelSize: ApplicationStyle.dialog_text_font_size
            }
        }
        label: Item {}
        __dropDownStyle: Component { ThemedMenuStyle { __menuItemType: "comboboxitem" } }
    }

    HoverToolTip {
        anchorItem: root
        text: qsTr("Search History")
        shown: root.hovered && !root.pressed
    }
}
