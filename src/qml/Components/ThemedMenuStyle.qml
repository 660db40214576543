import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

// How menus and the lists of combo boxes look.
MenuStyle {
    id: root

    property var entryColors: []
    readonly property color textColor: ApplicationStyle.dialog_text_color_alternative
    readonly property color selectedTextColor: ApplicationStyle.orrange_button_text_color

    frame: Rectangle {
        color: ApplicationStyle.dark ? "#23242f" : "#fafaff"
        border { width: 1; color: ApplicationStyle.dark ? "#5b5c6b" : ApplicationStyle.border_color }
    }
    itemDelegate.background: Rectangle {
        color: styleData.selected && styleData.enabled ? ApplicationStyle.orrange_button_color : "transparent"
    }
    itemDelegate.label: PlainText {
        text: styleData.text
        height: Units.dp(28)
        verticalAlignment: Text.AlignVCenter
        leftPadding: Units.dp(6) + (_disc.visible ? _disc.width + Units.dp(6) : 0)
        rightPadding: Units.dp(18)
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
        opacity: styleData.enabled ? 1.0 : 0.4
        color: styleData.selected && styleData.enabled ? root.selectedTextColor : root.textColor

        Rectangle {
            id: _disc
            anchors { left: parent.left; leftMargin: Units.dp(6); verticalCenter: parent.verticalCenter }
            visible: styleData.index < root.entryColors.length
            width: Units.dp(14)
            height: width
            radius: width / 2
            color: visible ? root.entryColors[styleData.index] : "transparent"
            border { width: 1; color: Qt.darker(color, 2) }
        }
    }
    itemDelegate.shortcut: PlainText {
        text: styleData.shortcut
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
        opacity: 0.6
        color: root.textColor
    }
    itemDelegate.checkmarkIndicator: PlainText {
        text: styleData.checked ? "\u2713" : ""
        width: Units.dp(16)
        height: Units.dp(28)
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        font { pixelSize: ApplicationStyle.dialog_text_font_size; bold: true }
        color: styleData.selected ? root.selectedTextColor : ApplicationStyle.orrange_button_color
    }
    separator: Item {
        implicitHeight: Units.dp(7)
        Rectangle {
            anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
            anchors.margins: Units.dp(6)
            height: 1
            color: root.textColor
            opacity: 0.25
        }
    }
}
