import QtQuick 2.15
import QtQuick.Controls 1.4
import "."

// A text button; `primary` marks the one that carries on.
Button {
    id: root

    property bool primary: false

    style: primary ? ApplicationStyle.button_style_dark_orange : ApplicationStyle.button_style_light
    activeFocusOnPress: true
    activeFocusOnTab: true

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    onHoveredChanged: CentralManager.onButtonHoverChanged(root)
}
