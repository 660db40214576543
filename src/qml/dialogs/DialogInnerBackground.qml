import QtQuick 2.15
import "../Components"

Rectangle {
    color: ApplicationStyle.dialog_background_color
    radius: Units.dp(6)
}
