import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The open sources as tabs, between the toggle of the full list and the add button.
Rectangle {
    id: root

    property Item list: null
    readonly property bool __noSources: !!list && list.tabs.length === 0 && CentralManager.hasFileOpen

    signal tabChangeRequested(int sourceId)
    signal removeRequested(int sourceId, string title)

    height: Units.dp(30)
    color: ApplicationStyle.bar_background_color

    function openAddMenu() {
        _addMenu.popupBelow(_add)
    }

    IconButton {
        id: _toggle
        anchors { left: parent.left; leftMargin: Units.dp(6); verticalCenter: parent.verticalCenter }
        objectName: "toggleSources"
        icon: "sources-list"
        pressedLook: !!root.list && root.list.out
        enabled: CentralManager.hasFileOpen
        tooltip: qsTr("Toggle All Sources List")
        onClicked: root.list.out = !root.list.out
    }

    ListView {
        id: _tabs
        anchors { left: _toggle.right; right: _add.left; top: parent.top; bottom: parent.bottom }
        anchors { leftMargin: Units.dp(8); rightMargin: Units.dp(8); topMargin: Units.dp(3) }
        orientation: ListView.Horizontal
        interactive: false
        clip: true
        spacing: Units.dp(2)
        model: root.list ? root.list.tabs : []

        delegate: TabShape {
            width: (_tabs.width - (_tabs.count - 1) * _tabs.spacing) / Math.max(1, _tabs.count)
            height: _tabs.height
            selected: modelData.sourceId === CentralManager.currentSourceId
            text: modelData.title
            hasMenu: true
            onClicked: if (!selected) root.tabChangeRequested(modelData.sourceId)
            onMenuRequested: {
                _tabMenu.tab = modelData
                _tabMenu.popupBelow(this)
            }
        }
    }

    PlainText {
        anchors { right: _add.left; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        visible: root.__noSources
        text: qsTr("Click to Add Source >")
        color: ApplicationStyle.orrange_button_color
        font { pixelSize: ApplicationStyle.label_font_size; bold: true }

        MouseArea {
            anchors.fill: parent
            cursorShape: Qt.PointingHandCursor
            onClicked: root.openAddMenu()
        }
    }

    IconButton {
        id: _add
        anchors { right: parent.right; rightMargin: Units.dp(6); verticalCenter: parent.verticalCenter }
        objectName: "addSource"
        icon: "add-source"
        enabled: CentralManager.hasFileOpen
        tooltip: qsTr("Add Source")
        onClicked: root.openAddMenu()
    }

    AddSourceMenu { id: _addMenu }

    StyledMenu {
        id: _tabMenu

        property var tab: null

        MenuItem {
            text: qsTr("Remove the Source")
            enabled: CentralManager.canMutate
            onTriggered: root.removeRequested(_tabMenu.tab.sourceId, _tabMenu.tab.title)
        }
    }
}
