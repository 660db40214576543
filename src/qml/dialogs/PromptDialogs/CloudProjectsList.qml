import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// Projects of the cloud to choose one from, below what they are.
ColumnLayout {
    id: root

    property string title
    property string emptyText
    property var projects: []
    // Own projects can be fetched as files, and deleted.
    property bool own: false
    readonly property var selected: _list.currentIndex >= 0 && _list.currentIndex < projects.length
                                    ? projects[_list.currentIndex] : null

    signal activated(var project)
    signal downloadRequested(var project)
    signal removeRequested(var project)
    signal chosen()

    spacing: ApplicationStyle.default_margin

    function clearSelection() { _list.currentIndex = -1 }
    function takeFocus() { _list.forceActiveFocus() }

    DialogLabel { text: root.title }

    FieldFrame {
        Layout.fillWidth: true
        Layout.fillHeight: true
        color: ApplicationStyle.list_background_color
        focused: _list.activeFocus

        DialogLabel {
            anchors.centerIn: parent
            width: parent.width - 2 * ApplicationStyle.default_margin
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            visible: _list.count === 0
            text: root.emptyText
            color: ApplicationStyle.dialog_text_color_alternative
            opacity: 0.7
        }

        StyledScrollView {
            anchors.fill: parent
            anchors.margins: 2

            ListView {
                id: _list
                model: root.projects
                currentIndex: -1
                activeFocusOnTab: true
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                highlightMoveDuration: 0
                Accessible.role: Accessible.List
                Accessible.name: root.title
                focus: root.own
                onActiveFocusChanged: __selectFirst()
                onCountChanged: __selectFirst()
                onCurrentIndexChanged: {
                    if (currentIndex >= 0)
                        root.chosen()
                }
                Keys.onReturnPressed: if (root.selected) root.activated(root.selected)
                Keys.onEnterPressed: if (root.selected) root.activated(root.selected)
                Keys.onDeletePressed: if (root.selected && root.own) root.removeRequested(root.selected)

                function __selectFirst() {
                    if (activeFocus && currentIndex < 0 && count > 0)
                        currentIndex = 0
                }

                delegate: CloudProjectRow {
                    width: ListView.view.width
                    project: modelData
                    own: root.own
                    selected: ListView.isCurrentItem
                    onPressed: {
                        _list.forceActiveFocus()
                        _list.currentIndex = index
                    }
                    onActivated: root.activated(modelData)
                    onDownloadRequested: root.downloadRequested(modelData)
                    onRemoveRequested: root.removeRequested(modelData)
                }
            }
        }
    }
}
