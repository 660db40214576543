import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// A tick box that follows whether all is selected, and asks for the opposite.
CheckBox {
    id: root

    property bool allSelected: false
    property string tooltip

    signal toggled(bool select)

    style: ApplicationStyle.check_box_style
    checked: allSelected
    activeFocusOnTab: true
    // What it selects is taken by keys.
    activeFocusOnPress: true
    Accessible.name: tooltip

    onClicked: {
        toggled(!allSelected)
        // The click has replaced the binding by a value.
        checked = Qt.binding(function() { return allSelected })
    }

    Rectangle {
        anchors { fill: parent; margins: -Units.dp(3) }
        radius: Units.dp(3)
        color: "transparent"
        visible: root.activeFocus
        border { width: 2; color: ApplicationStyle.orrange_button_color }
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
