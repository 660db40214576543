import QtQuick 2.15
import "."

// What stands behind a row of a list.
Rectangle {
    property bool selected: false
    property bool hovered: false

    color: selected ? ApplicationStyle.row_selected_color
         : hovered ? ApplicationStyle.listview_highlight_color : "transparent"
}
