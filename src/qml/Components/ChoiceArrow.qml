import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// A combo box of which only the arrow shows: it keeps no choice, but tells of each.
ComboBox {
    id: root

    property string tooltip

    signal chosen(int index)

    currentIndex: -1
    activeFocusOnTab: true
    Accessible.name: tooltip

    function __forget() {
        currentIndex = -1
    }

    // Rows that come and go move the choice, too; the entry that it fell on could not be chosen then.
    onCurrentIndexChanged: Qt.callLater(__forget)
    onModelChanged: __forget()
    onActivated: {
        __forget()
        chosen(index)
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

    // Scrolling what it stands in must not choose anything.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        onWheel: wheel.accepted = true
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
