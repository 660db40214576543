import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "../Components"

// Reads on beyond a quote, until there is nothing more.
Button {
    id: root

    property bool exhausted: false

    text: "..."
    enabled: !exhausted
    activeFocusOnTab: true
    Accessible.name: tooltip
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    style: ButtonStyle {
        background: Rectangle {
            implicitWidth: Units.dp(30)
            implicitHeight: Units.dp(18)
            radius: height / 2
            color: control.pressed || control.hovered ? ApplicationStyle.listview_highlight_color : "transparent"
            opacity: control.enabled ? 1.0 : 0.45
            border {
                width: control.activeFocus ? 2 : 1
                color: control.activeFocus ? ApplicationStyle.orrange_button_color : ApplicationStyle.border_color
            }
        }
        label: PlainText {
            text: control.text
            color: ApplicationStyle.source_text_color
            opacity: control.enabled ? 1.0 : 0.45
            font { pixelSize: ApplicationStyle.label_font_size; bold: true }
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
    }
}
