import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."

Slider {
    style: SliderStyle {
        groove: Rectangle {
            implicitHeight: Units.dp(4)
            radius: height / 2
            color: ApplicationStyle.dark ? ApplicationStyle.dialog_highlight_color : "#9a9ab4"
        }
        handle: Rectangle {
            implicitWidth: Units.dp(14)
            implicitHeight: Units.dp(14)
            radius: width / 2
            color: control.pressed ? Qt.darker(ApplicationStyle.orrange_button_color, 1.2)
                                   : ApplicationStyle.orrange_button_color
            border { width: control.activeFocus ? 2 : 0; color: ApplicationStyle.dialog_text_color_alternative }
        }
    }
}
