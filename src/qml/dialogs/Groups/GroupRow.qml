import QtQuick 2.15
import "../../Components"

// A group: its title, and how many kernos are in it. What a list adds to that stands at the ends.
RowHighlight {
    id: root

    property string title
    property int kernos: 0
    property Item leading: null
    property Item trailing: null
    readonly property bool underMouse: _mouse.containsMouse
    readonly property Item list: ListView.view

    signal clicked()

    width: ListView.view.width
    height: Units.dp(38)
    hovered: underMouse
    Accessible.role: Accessible.ListItem
    Accessible.name: title

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: {
            root.list.forceActiveFocus()
            root.list.currentIndex = index
            root.clicked()
        }
    }

    PlainText {
        id: _title
        anchors { left: root.leading ? root.leading.right : parent.left; verticalCenter: parent.verticalCenter }
        anchors.leftMargin: ApplicationStyle.default_margin
        width: Math.min(implicitWidth, root.width - x - _count.implicitWidth - 3 * ApplicationStyle.default_margin
                                       - (root.trailing ? root.trailing.width : 0))
        text: root.title
        elide: Text.ElideRight
        color: ApplicationStyle.dialog_text_color_alternative
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }
    PlainText {
        id: _count
        anchors { left: _title.right; leftMargin: ApplicationStyle.default_margin; baseline: _title.baseline }
        text: qsTr("| Associated kernos: %1").arg(root.kernos)
        color: ApplicationStyle.dialog_text_color_alternative
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }
}
