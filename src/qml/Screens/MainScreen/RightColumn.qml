import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"
import "../../Source"
import "../../StructuredQuestion"

// The sources: their tabs and list, and the panels about them.
FocusScope {
    id: root

    property Item dragItem: null
    property bool resizing: false
    readonly property alias sourcePercentageCoded: _list.sourcePercentageCoded
    readonly property alias globalPercentageCoded: _list.globalPercentageCoded
    readonly property bool __tabsShown: !CentralManager.showSearchPanel && !CentralManager.showMetadataOverviewPanel
                                        && !CentralManager.showingOverlapOrHierarchy

    Rectangle {
        anchors.fill: parent
        color: ApplicationStyle.source_background_color
    }

    TabBar {
        id: _tabs
        anchors { left: parent.left; right: parent.right }
        height: root.__tabsShown ? Units.dp(30) : 0
        visible: root.__tabsShown
        z: 3
        list: _list
        onTabChangeRequested: _list.open(sourceId)
        onRemoveRequested: _removeSource.ask(sourceId, title)
    }

    Item {
        anchors { top: _tabs.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        z: 2
        clip: true

        SourcesList {
            id: _list
            width: parent.width
            maximumHeight: root.height / 1.3
            onRemoveRequested: _removeSource.ask(sourceId, title)
        }
    }

    PanelBar {
        id: _panelBar
        anchors { top: _tabs.bottom; left: parent.left; right: parent.right }
    }

    StackView {
        id: rightStackView
        anchors { top: _panelBar.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        enabled: !_list.out
        clip: true
        initialItem: StructuredQuestionSourcePanel {
            dragItem: root.dragItem
            resizing: root.resizing
        }
    }

    RemoveSourceDialog { id: _removeSource }
}
