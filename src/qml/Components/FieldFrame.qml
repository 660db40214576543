import QtQuick 2.15
import "."

// What stands behind a field: its ground, and its border, which tells where the keyboard is.
Rectangle {
    property bool focused: false
    property bool invalid: false

    radius: Units.dp(4)
    color: ApplicationStyle.textfield_background_color
    border {
        width: focused ? 2 : 1
        color: invalid ? ApplicationStyle.error_text_color
             : focused ? ApplicationStyle.orrange_button_color : ApplicationStyle.border_color
    }
}
