import QtQuick 2.15
import "../Components"
import "Overview.js" as Overview

// A property's name over the bar of all its values. `row` is the loader's.
Item {
    id: root

    readonly property var values: row ? row.values : []

    implicitHeight: _bar.y + _bar.height + Units.dp(8)

    PlainText {
        id: _name
        y: row && row.first ? 0 : Units.dp(18)
        width: parent.width
        text: row ? row.key : ""
        elide: Text.ElideRight
        color: ApplicationStyle.default_text_color
        font.pointSize: 20
    }

    Rectangle {
        id: _bar
        objectName: "stackedBar"
        anchors { left: parent.left; right: parent.right; top: _name.bottom; topMargin: Units.dp(4) }
        height: 12
        color: "transparent"
        border { width: 1; color: ApplicationStyle.border_color }

        Repeater {
            model: Overview.segments(root.values, _bar.width - 2)

            Rectangle {
                x: 1 + modelData.x
                y: 1
                width: modelData.width
                height: _bar.height - 2
                color: modelData.color
            }
        }
    }
}
