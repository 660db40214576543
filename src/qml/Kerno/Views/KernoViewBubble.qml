import QtQuick 2.15
import "../../Components"
import "../CircleKerno"

// A bubble that stands where its view puts it. A passage that is dragged over it turns it grey.
FocusScope {
    id: root

    property var dataSource: null
    property Item mouseArea: null
    property Item dropArea: null
    // A bubble that is chosen has an orange rim.
    property bool chosen: false
    readonly property alias bubble: _bubble
    readonly property alias kernoId: _bubble.kernoId
    readonly property bool __takesDrop: !!dropArea && dropArea.containsTextDrag && dropArea.level0KernoId === kernoId
    readonly property bool hovered: !!mouseArea && mouseArea.kernoId === kernoId
    property alias tabStop: _bubble.activeFocusOnTab
    property alias showNumberOfCodings: _bubble.showNumberOfCodings

    width: _bubble.width
    height: _bubble.height
    z: hovered || __takesDrop ? 2 : 1

    CircleParentKerno {
        id: _bubble
        level: 0
        manualPosition: true
        focus: true
        hovered: root.hovered
        greyed: root.__takesDrop
        dataSource: root.dataSource

        Accessible.role: Accessible.Button
        Accessible.name: title
        Accessible.focusable: true
        Accessible.focused: activeFocus

        Rectangle {
            anchors { fill: parent; margins: -Units.dp(5) }
            radius: width / 2
            color: "transparent"
            visible: root.chosen || _bubble.activeFocus
            border {
                width: Units.dp(_bubble.activeFocus ? 2 : 3)
                color: root.chosen ? ApplicationStyle.orrange_button_color : ApplicationStyle.default_text_color
            }
        }
    }
}
