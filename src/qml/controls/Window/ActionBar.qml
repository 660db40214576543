import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../../Components"

// The buttons and menus along the top of the window.
Rectangle {
    id: root

    readonly property bool __undoBlocked: CentralManager.overlayCount > 0

    signal actionItemClicked(string action)
    signal queryRequested(bool twoPane, bool sortByLeft)
    signal queryReportRequested(bool leftQuery)

    height: Units.dp(72)
    color: ApplicationStyle.bar_background_color

    function undo() {
        if (!__undoBlocked)
            _undo.undo()
    }

    function redo() {
        if (!__undoBlocked)
            _undo.redo()
    }

    // The views allow no going back past their opening.
    UndoLimit { id: _undo }

    Connections {
        target: CentralManager
        function onSetNewUndoStackLock() { _undo.start() }
        function onRemoveUndoStackLock() { _undo.end() }
    }

    Action {
        shortcut: "Ctrl+Z"
        onTriggered: root.undo()
    }
    Action {
        shortcut: "Ctrl+Y"
        onTriggered: root.redo()
    }

    RowLayout {
        anchors { fill: parent; leftMargin: Units.dp(6); rightMargin: Units.dp(6) }
        spacing: Units.dp(6)

        KernovaToolButton {
            icon: "action_home"
            text: qsTr("Home")
            onClicked: {
                root.actionItemClicked("action_home")
                CentralManager.switchToDefaultView()
            }
        }
        KernovaToolButton {
            icon: "action_project"
            text: qsTr("Project")
            tooltip: qsTr("Manage project.")
            onClicked: _projectMenu.popupBelow(this)
        }
        KernovaToolButton {
            icon: "action_export"
            text: qsTr("Export")
            tooltip: qsTr("Export the project in the selected format.")
            visible: !CentralManager.showingOverlapOrHierarchy
            onClicked: {
                if (CentralManager.showQueryScreen)
                    _queryExportMenu.popupBelow(this)
                else
                    _exportMenu.popupBelow(this)
            }
        }
        KernovaToolButton {
            icon: "action_undo"
            text: qsTr("Undo")
            tooltip: undoManager.undoText
            enabled: _undo.canUndo
            onClicked: root.undo()
        }
        KernovaToolButton {
            icon: "action_redo"
            text: qsTr("Redo")
            tooltip: undoManager.redoText
            enabled: _undo.canRedo
            onClicked: root.redo()
        }
        KernovaToolButton {
            icon: "action_view"
            text: qsTr("View")
            tooltip: qsTr("Customise current view.")
            visible: !CentralManager.showQueryScreen || CentralManager.twoPaneQuery
            onClicked: {
                if (CentralManager.showQueryScreen)
                    _queryViewMenu.popupBelow(this)
                else
                    _viewMenu.popupBelow(this)
            }
        }
        KernovaToolButton {
            icon: "action_groups"
            text: qsTr("Groups")
            tooltip: qsTr("Manage groups and their visibility.")
            pressedLook: _groupsMenu.numberOfChecked > 0
            visible: !CentralManager.showQueryScreen && !CentralManager.showingOverlapOrHierarchy
            enabled: CentralManager.hasFileOpen
            onClicked: _groupsMenu.popupBelow(this)
        }
        KernovaToolButton {
            objectName: "action_query"
            icon: "action_query"
            text: qsTr("Query")
            tooltip: qsTr("Show query screen.")
            visible: !CentralManager.showQueryScreen && !CentralManager.showingOverlapOrHierarchy
            enabled: CentralManager.hasFileOpen
            onClicked: CentralManager.showQueryScreen = true
        }
        KernovaToolButton {
            objectName: "action_panel"
            icon: "action_panel"
            text: qsTr("Panel")
            tooltip: qsTr("Toggle top query panel.")
            visible: CentralManager.showQueryScreen
            onClicked: CentralManager.showQueryPanelInQueryScreen = !CentralManager.showQueryPanelInQueryScreen
        }
        KernovaToolButton {
            objectName: "action_compare"
            icon: CentralManager.twoPaneQuery ? "action_single" : "action_compare"
            text: CentralManager.twoPaneQuery ? qsTr("Single") : qsTr("Compare")
            tooltip: CentralManager.twoPaneQuery ? qsTr("Single query mode.") : qsTr("Comparison query mode.")
            visible: CentralManager.showQueryScreen
            enabled: CentralManager.showQueryPanelInQueryScreen
            onClicked: CentralManager.twoPaneQuery = !CentralManager.twoPaneQuery
        }
        KernovaToolButton {
            objectName: "action_update"
            icon: "action_update"
            text: qsTr("Update")
            tooltip: qsTr("Update the query based on View settings.")
            visible: CentralManager.showQueryScreen
            onClicked: root.queryRequested(CentralManager.twoPaneQuery, _queryViewMenu.sortByLeft)
        }
        Item { Layout.fillWidth: true }
        KernovaToolButton {
            icon: "action_help"
            text: qsTr("Help")
            tooltip: qsTr("Show help menu.")
            onClicked: _helpMenu.popupBelow(this)
        }
        KernovaToolButton {
            icon: "action_settings"
            text: qsTr("Settings")
            enabled: CentralManager.hasFileOpen
            onClicked: _preferencesMenu.popupBelow(this)
        }
    }

    SaveProjectDialog { id: _saveDialog }

    ExportCsvDialog { id: _csvDialog }

    ProjectMenu {
        id: _projectMenu
        saveDialog: _saveDialog
    }

    ExportMenu {
        id: _exportMenu
        saveDialog: _saveDialog
        csvDialog: _csvDialog
    }

    ViewMenu { id: _viewMenu }

    QueryViewMenu { id: _queryViewMenu }

    QueryExportMenu {
        id: _queryExportMenu
        onReportRequested: root.queryReportRequested(leftQuery)
    }

    GroupsMenu { id: _groupsMenu }

    StyledMenu {
        id: _helpMenu
        MenuItem {
            text: qsTr("Manage Account")
            visible: CentralManager.cloud
            onTriggered: CentralManager.pageOpened(appHelper.manageAccount())
        }
        MenuItem {
            text: qsTr("Show Introduction")
            onTriggered: CentralManager.showIntroSlider = true
        }
        MenuItem {
            text: qsTr("Download Manual")
            onTriggered: CentralManager.pageOpened(appHelper.openManual())
        }
        MenuItem {
            text: qsTr("Keyboard Shortcuts")
            shortcut: "F1"
            onTriggered: CentralManager.showKeyboardSheet = true
        }
        MenuItem {
            text: qsTr("About")
            onTriggered: CentralManager.showAboutDialog = true
        }
    }

    StyledMenu {
        id: _preferencesMenu
        MenuItem {
            text: qsTr("General Project Preferences")
            onTriggered: CentralManager.showGeneralPreferencesDialog = true
        }
        MenuItem {
            text: qsTr("Kerno Coding Shortcut Keys")
            enabled: CentralManager.canMutate
            onTriggered: CentralManager.showKernoShortcutKeyEditorDialog = true
        }
    }
}
