import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils
import "Overview.js" as Overview

// A value of a property: its share as a bar and in figures, and how often it occurs. `row` is the loader's.
Item {
    id: root

    implicitHeight: Units.dp(24)
    Accessible.role: Accessible.StaticText
    Accessible.name: _percentage.text + " " + _value.text

    Rectangle {
        id: _bar
        anchors.verticalCenter: parent.verticalCenter
        width: Units.dp(50)
        height: Units.dp(16)
        color: "transparent"
        border { width: 1; color: ApplicationStyle.border_color }

        Rectangle {
            x: 1
            y: 1
            width: Overview.part(Math.round(row.factor * 100) / 100) * (parent.width - 2)
            height: parent.height - 2
            color: row.color
        }
    }
    PlainText {
        id: _percentage
        anchors { left: _bar.right; verticalCenter: parent.verticalCenter }
        width: Units.dp(46)
        horizontalAlignment: Text.AlignRight
        text: "%1%".arg(Math.round(row.factor * 100))
        color: ApplicationStyle.source_text_color
        font { pixelSize: ApplicationStyle.label_font_size; bold: true }
    }
    PlainText {
        id: _value
        anchors { left: _percentage.right; leftMargin: ApplicationStyle.default_margin; right: parent.right }
        anchors.verticalCenter: parent.verticalCenter
        text: Utils.filled("%1: %2", row.value, row.occurrences)
        elide: Text.ElideMiddle
        color: ApplicationStyle.source_text_color
        font.pixelSize: ApplicationStyle.label_font_size
    }
}
