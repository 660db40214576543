import QtQuick 2.15
import "../../Components"

// The projects that are to be merged into the master; `projects` has their identities.
FieldFrame {
    id: root

    property var projects: []
    property var nameOf: function(project) { return project.name }

    signal removeRequested(var project)

    color: ApplicationStyle.list_background_color
    focused: _list.activeFocus

    DialogLabel {
        anchors.centerIn: parent
        visible: _list.count === 0
        text: qsTr("No projects to merge yet")
        color: ApplicationStyle.dialog_text_color_alternative
        opacity: 0.7
    }

    StyledScrollView {
        anchors.fill: parent
        anchors.margins: 2

        ListView {
            id: _list
            objectName: "projectsToMerge"
            model: root.projects
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            activeFocusOnTab: true
            Keys.onDeletePressed: {
                if (currentIndex >= 0 && currentIndex < count)
                    root.removeRequested(root.projects[currentIndex])
            }
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Projects to merge")

            delegate: RowHighlight {
                width: ListView.view.width
                height: Units.dp(34)
                selected: ListView.isCurrentItem && ListView.view.activeFocus
                hovered: _mouse.containsMouse
                Accessible.role: Accessible.ListItem
                Accessible.name: _name.text

                MouseArea {
                    id: _mouse
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: {
                        _list.forceActiveFocus()
                        _list.currentIndex = index
                    }
                }
                PlainText {
                    id: _name
                    anchors { left: parent.left; right: _remove.left; verticalCenter: parent.verticalCenter }
                    anchors.margins: ApplicationStyle.default_margin
                    text: root.nameOf(modelData)
                    elide: Text.ElideMiddle
                    color: ApplicationStyle.dialog_text_color_alternative
                    font.pixelSize: ApplicationStyle.dialog_text_font_size
                }
                IconButton {
                    id: _remove
                    anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
                    anchors.verticalCenter: parent.verticalCenter
                    iconSize: Units.dp(16)
                    icon: "close"
                    tooltip: qsTr("Remove from list")
                    onClicked: root.removeRequested(modelData)
                }
            }
        }
    }
}
