import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// The recent projects to choose one from.
FieldFrame {
    id: root

    property alias model: _list.model
    readonly property string selectedPath: {
        var rows = _list.count
        return _list.currentIndex >= 0 && _list.currentIndex < rows ? model.get(_list.currentIndex).path : ""
    }

    signal activated(string path)
    signal removeRequested(string path)

    color: ApplicationStyle.list_background_color
    focused: _list.activeFocus

    DialogLabel {
        anchors.centerIn: parent
        visible: _list.count === 0
        text: qsTr("No Recent Files")
        color: ApplicationStyle.dialog_text_color_alternative
        opacity: 0.7
    }

    StyledScrollView {
        anchors.fill: parent
        anchors.margins: 2

        ListView {
            id: _list
            activeFocusOnTab: true
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            Keys.onReturnPressed: root.activated(root.selectedPath)
            Keys.onEnterPressed: root.activated(root.selectedPath)
            Keys.onDeletePressed: if (root.selectedPath !== "") root.removeRequested(root.selectedPath)
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Recent Projects")

            delegate: RowHighlight {
                width: ListView.view.width
                height: Units.dp(46)
                selected: ListView.isCurrentItem
                hovered: _rowMouse.containsMouse
                Accessible.role: Accessible.ListItem
                Accessible.name: name
                Accessible.description: path
                Accessible.selected: selected

                MouseArea {
                    id: _rowMouse
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: {
                        _list.forceActiveFocus()
                        _list.currentIndex = index
                    }
                    onDoubleClicked: root.activated(path)
                }

                Column {
                    anchors { left: parent.left; right: _remove.left; verticalCenter: parent.verticalCenter }
                    anchors.margins: ApplicationStyle.default_margin
                    spacing: Units.dp(2)

                    PlainText {
                        width: parent.width
                        text: name
                        elide: Text.ElideRight
                        color: ApplicationStyle.dialog_text_color_alternative
                        font { pixelSize: ApplicationStyle.dialog_text_font_size; italic: invoked }
                    }
                    PlainText {
                        width: parent.width
                        text: path
                        elide: Text.ElideMiddle
                        color: ApplicationStyle.dialog_text_color_alternative
                        opacity: 0.65
                        font.pixelSize: Units.dp(11)
                    }
                }

                IconButton {
                    id: _remove
                    anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
                    anchors.verticalCenter: parent.verticalCenter
                    visible: !invoked
                    iconSize: Units.dp(16)
                    icon: "close"
                    tooltip: qsTr("Remove from list (does not delete project)")
                    onClicked: root.removeRequested(path)
                }
            }
        }
    }
}
