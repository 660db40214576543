import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// One source in the list of all.
RowHighlight {
    id: root

    signal chosen()
    signal removeRequested()

    height: Units.dp(50)
    Accessible.role: Accessible.ListItem
    Accessible.name: model.title || ""
    Accessible.selected: selected
    selected: CentralManager.currentSourceId === model.sourceId
    hovered: _mouse.containsMouse

    FocusRing {
        anchors.margins: 1
        shown: root.ListView.isCurrentItem && root.ListView.view.activeFocus
    }

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.chosen()
    }

    Image {
        id: _icon
        anchors { left: parent.left; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        width: Units.dp(32)
        height: Units.dp(32)
        mipmap: true
        source: "qrc:///qml/images/%1.png".arg(model.icon || "md_generic")
    }

    Column {
        anchors { left: _icon.right; right: _percentage.left; verticalCenter: parent.verticalCenter }
        anchors { leftMargin: ApplicationStyle.default_margin; rightMargin: ApplicationStyle.default_margin }
        spacing: Units.dp(2)

        PlainText {
            width: parent.width
            text: model.title || ""
            elide: Text.ElideMiddle
            color: ApplicationStyle.dialog_text_color_alternative
            font.pixelSize: ApplicationStyle.dialog_text_font_size
        }
        PlainText {
            width: parent.width
            text: Utils.filled(qsTr("By: %1 on %2"), model.author || qsTr("(Unknown)"),
                               Qt.formatDateTime(model.timestamp, "dd.MM.yyyy HH:mm"))
            elide: Text.ElideRight
            color: ApplicationStyle.dialog_text_color_alternative
            opacity: 0.7
            font.pixelSize: Units.dp(11)
        }
    }

    PlainText {
        id: _percentage
        anchors { right: _delete.left; rightMargin: ApplicationStyle.default_margin }
        anchors.verticalCenter: parent.verticalCenter
        text: "%1%".arg(model.sourcePercentageCoded || 0)
        color: ApplicationStyle.default_text_color
        font { pixelSize: ApplicationStyle.dialog_text_font_size; bold: true }
    }

    IconButton {
        id: _delete
        anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        enabled: CentralManager.canMutate
        icon: "delete"
        iconSize: Units.dp(20)
        tooltip: qsTr("Delete this source.")
        onClicked: root.removeRequested()
    }
}
