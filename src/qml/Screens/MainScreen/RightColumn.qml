import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"
import "../../Source"
import "../../metadata"
import "../../searchpanel"
import "../../StructuredQuestion"
import "../../Utils.js" as Utils

// The sources: their tabs and list, and the panels about them.
FocusScope {
    id: root

    property Item dragItem: null
    property bool resizing: false
    readonly property alias partialAnswersPanel: _partialAnswers
    readonly property alias metadataSummaryPanel: _metadataSummary
    readonly property alias sourcePercentageCoded: _list.sourcePercentageCoded
    readonly property alias globalPercentageCoded: _list.globalPercentageCoded
    readonly property var parts: [_tabs, _viewTabs, _panelBar, rightStackView]
    readonly property bool __tabsShown: !CentralManager.showSearchPanel && !CentralManager.showMetadataOverviewPanel
                                        && !CentralManager.showingOverlapOrHierarchy
    // What stands over the source view, or null: the first that is wanted.
    readonly property Item __panel: {
        var rows = [
            [CentralManager.showMetadataForKerno, _metadataSummary],
            [CentralManager.showingOverlapOrHierarchy, _partialAnswers],
            [CentralManager.showSearchPanel, _searchResults],
            [CentralManager.showMetadataOverviewPanel, _metadataSummary],
            [CentralManager.showMetadataPanel, _metadata]
        ]
        var wanted = Utils.findInArray(rows, function(row) { return row[0] })
        return wanted ? wanted[1] : null
    }

    on__PanelChanged: {
        if (rightStackView.depth > 1)
            rightStackView.pop()
        if (__panel)
            rightStackView.push({ item: __panel, destroyOnPop: false })
        if (!CentralManager.showingOverlapOrHierarchy)
            _partialAnswers.resetModel()
    }

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
        onTabChangeRequested: _list.switchToSource(sourceId)
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

    KernoViewTabs {
        id: _viewTabs
        anchors { top: _tabs.bottom; left: parent.left; right: parent.right }
        height: visible ? Units.dp(30) : 0
        visible: CentralManager.showingOverlapOrHierarchy
    }

    PanelBar {
        id: _panelBar
        anchors { top: _viewTabs.bottom; left: parent.left; right: parent.right }
        quotesPanel: root.__panel && root.__panel.quotes ? root.__panel : null
        sourceShown: !root.__panel
        metadataShown: root.__panel === _metadata || root.__panel === _metadataSummary
    }

    StackView {
        id: rightStackView
        anchors { top: _panelBar.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        enabled: !_list.out
        clip: true
        delegate: ApplicationStyle.stack_view_delegate.createObject(rightStackView)
        initialItem: StructuredQuestionSourcePanel {
            dragItem: root.dragItem
            resizing: root.resizing
        }
    }

    PartialAnswersPanel {
        id: _partialAnswers
        visible: false
        dragItem: root.dragItem
        resizing: root.resizing
    }

    SearchResultsPanel {
        id: _searchResults
        visible: false
        dragItem: root.dragItem
        resizing: root.resizing
    }

    MetadataPanel {
        id: _metadata
        visible: false
    }

    MetadataSummaryPanel {
        id: _metadataSummary
        visible: false
    }

    RemoveSourceDialog { id: _removeSource }
}
