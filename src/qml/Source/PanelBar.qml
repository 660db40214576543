import QtQuick 2.15
import "../Components"
import "../Memo"

// What the right column shows: the toggles of memos and search, a caption, and the tabs of the panels.
Rectangle {
    id: root

    // The panel whose quotes are shown, or null.
    property Item quotesPanel: null
    property bool sourceShown: true
    property bool metadataShown: false

    height: Units.dp(30)
    color: ApplicationStyle.selected_tab

    IconButton {
        id: _memos
        anchors { left: parent.left; leftMargin: Units.dp(6); verticalCenter: parent.verticalCenter }
        objectName: "memosToggle"
        icon: "memos"
        pressedLook: CentralManager.showMemosPanel || _memoDrop.containsDrag
        enabled: CentralManager.hasFileOpen
        tooltip: qsTr("Toggle memos. Drop a passage here to write a memo on it.")
        onClicked: CentralManager.showMemosPanel = !CentralManager.showMemosPanel

        MemoDropArea {
            id: _memoDrop
            anchors { fill: parent; margins: -Units.dp(4) }
        }
    }

    IconButton {
        id: _search
        anchors { left: _memos.right; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        objectName: "searchToggle"
        icon: "search"
        pressedLook: CentralManager.showSearchPanel
        enabled: CentralManager.hasFileOpen && !CentralManager.showingOverlapOrHierarchy
        tooltip: qsTr("Toggle the search panel.")
        onClicked: CentralManager.showSearchPanel = !CentralManager.showSearchPanel
    }

    PlainText {
        anchors { left: _search.right; leftMargin: ApplicationStyle.default_margin; verticalCenter: parent.verticalCenter }
        text: CentralManager.topRightText
        color: ApplicationStyle.default_text_color
        font.pixelSize: ApplicationStyle.label_font_size
    }

    Row {
        anchors { right: parent.right; rightMargin: Units.dp(6); top: parent.top; bottom: parent.bottom }
        anchors.topMargin: Units.dp(3)
        spacing: Units.dp(2)

        QuoteActions {
            height: parent.height
            rightPadding: Units.dp(4)
            panel: root.quotesPanel
        }

        PanelTab {
            visible: !CentralManager.showingOverlapOrHierarchy
            selected: root.sourceShown
            iconName: "panel-source"
            tooltip: qsTr("Source View")
            onClicked: {
                CentralManager.showMetadataOverviewPanel = false
                CentralManager.showMetadataPanel = false
                CentralManager.showSearchPanel = false
            }
        }
        PanelTab {
            objectName: "propertiesTab"
            visible: !CentralManager.showingOverlapOrHierarchy
            enabled: CentralManager.hasFileOpen
            selected: root.metadataShown
            iconName: "panel-properties"
            tooltip: qsTr("Properties")
            onClicked: CentralManager.showMetadataPanel = true
        }
        PanelTab {
            objectName: "questionsTab"
            visible: !CentralManager.singleQuestionMode && !CentralManager.showingOverlapOrHierarchy
            enabled: CentralManager.canMutate && _search.enabled && !CentralManager.showSearchPanel
            iconName: "panel-questions"
            tooltip: qsTr("Questions")
            onClicked: CentralManager.showEditQuestionsDialog = true
        }
    }
}
