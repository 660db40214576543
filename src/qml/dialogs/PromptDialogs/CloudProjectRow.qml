import QtQuick 2.15
import "../../Components"

// A project of the cloud in its list.
RowHighlight {
    id: root

    property var project: null
    property bool own: false

    signal pressed()
    signal activated()
    signal downloadRequested()
    signal removeRequested()

    height: Units.dp(46)
    hovered: _mouse.containsMouse
    Accessible.role: Accessible.ListItem
    Accessible.name: project.name
    Accessible.selected: selected

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.pressed()
        onDoubleClicked: root.activated()
    }

    Column {
        anchors { left: parent.left; right: _buttons.left; verticalCenter: parent.verticalCenter }
        anchors.margins: ApplicationStyle.default_margin
        spacing: Units.dp(2)

        PlainText {
            width: parent.width
            text: root.project.name
            elide: Text.ElideRight
            color: ApplicationStyle.dialog_text_color_alternative
            font.pixelSize: ApplicationStyle.dialog_text_font_size
        }
        PlainText {
            width: parent.width
            visible: root.own && root.project.shared_count > 0
            text: qsTr("Shared with %1").arg(root.project.shared_count)
            color: ApplicationStyle.dialog_text_color_alternative
            opacity: 0.65
            font.pixelSize: Units.dp(11)
        }
    }

    Row {
        id: _buttons
        anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
        anchors.verticalCenter: parent.verticalCenter
        visible: root.own
        width: visible ? implicitWidth : 0
        spacing: ApplicationStyle.default_margin

        IconButton {
            iconSize: Units.dp(18)
            icon: "download"
            tooltip: qsTr("Download project as krn file.")
            onClicked: root.downloadRequested()
        }
        IconButton {
            iconSize: Units.dp(18)
            icon: "delete"
            tooltip: qsTr("Delete project.")
            onClicked: root.removeRequested()
        }
    }
}
