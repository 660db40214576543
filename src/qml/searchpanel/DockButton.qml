import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "../Components"
import "../Utils.js" as Utils

// Folds the search panel away, or out again.
Button {
    id: root

    property bool minimized: false
    // Its width with its text.
    readonly property real expandedWidth: Units.dp(8 + 18 + 6 + 8) + _text.advanceWidth

    text: minimized ? "" : qsTr("Dock")
    activeFocusOnTab: true
    Accessible.name: minimized ? qsTr("Expand the Search Panel.") : qsTr("Minimise the Search Panel.")

    TextMetrics {
        id: _text
        text: qsTr("Dock")
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    style: ButtonStyle {
        padding { left: Units.dp(8); right: Units.dp(8); top: Units.dp(6); bottom: Units.dp(6) }
        background: Rectangle {
            radius: Units.dp(4)
            color: control.hovered ? Qt.rgba(0.53, 0.53, 0.53, 0.35) : "transparent"
            border {
                width: control.activeFocus ? 2 : 1
                color: control.activeFocus ? ApplicationStyle.orrange_button_color : ApplicationStyle.border_color
            }
        }
        label: Row {
            spacing: Units.dp(6)
            Image {
                anchors.verticalCenter: parent.verticalCenter
                width: Units.dp(18)
                height: Units.dp(18)
                mipmap: true
                source: Utils.iconSourceForTheme(control.minimized ? "undock" : "dock", ApplicationStyle.dark)
            }
            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                visible: text !== ""
                text: control.text
                color: ApplicationStyle.dialog_text_color_alternative
                font.pixelSize: ApplicationStyle.dialog_text_font_size
            }
        }
    }
}
