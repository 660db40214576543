import QtQuick 2.15
import "."

// A tab with rounded upper corners.
Clickable {
    id: root

    property bool selected: false
    property string icon
    property color selectedColor: ApplicationStyle.selected_tab
    property color notSelectedColor: ApplicationStyle.not_selected_tab

    clip: true
    ring.anchors.margins: 1
    ring.z: 1
    Accessible.role: Accessible.PageTab
    Accessible.selected: selected

    Rectangle {
        anchors { fill: parent; bottomMargin: -radius }
        radius: Units.dp(12)
        color: root.selected ? root.selectedColor
             : root.hovered ? Qt.lighter(root.notSelectedColor, 1.15) : root.notSelectedColor
        opacity: root.enabled ? 1.0 : 0.5
    }

    PlainText {
        anchors { fill: parent; leftMargin: Units.dp(10); rightMargin: Units.dp(10) }
        visible: root.text !== ""
        text: root.text
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
        color: root.selected ? ApplicationStyle.default_text_color : ApplicationStyle.dialog_text_color_alternative
        font { pixelSize: ApplicationStyle.label_font_size; bold: root.selected }
    }

    Image {
        anchors.centerIn: parent
        width: Units.dp(20)
        height: Units.dp(20)
        visible: root.icon !== ""
        mipmap: true
        source: root.icon
        opacity: root.enabled ? 1.0 : 0.5
    }
}
