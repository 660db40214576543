import QtQuick 2.15
import QtQuick.Window 2.15
import QtQuick.Controls 1.4
import Qt.labs.settings 1.0
import Kernova 1.4
import "../../Chat"
import "../../Components"
import "../../controls/Window"

// The top-level window: the screens, and the dialogs over them.
KernovaWindow {
    id: root

    readonly property alias mainWindowStack: _stack
    readonly property bool blocked: _stack.currentItem === _blocker
    property bool showFirstTimeIntro: true
    // The first frames still find places for everything; nobody needs to see that.
    property bool __laidOut: false

    title: "Kernova %1%2".arg(appHelper.applicationVersion()).arg(
               CentralManager.currentProject && CentralManager.currentProject.name
               ? " - " + CentralManager.currentProject.name : "")
    minimumWidth: 980
    minimumHeight: 680
    color: ApplicationStyle.canvas_background_color

    // Once: from then on the size and the place are the user's.
    Component.onCompleted: {
        width = Math.max(minimumWidth, Math.min(1440, Screen.desktopAvailableWidth * 0.9))
        height = Math.max(minimumHeight, Math.min(900, Screen.desktopAvailableHeight * 0.9))
        x = Screen.virtualX + (Screen.desktopAvailableWidth - width) / 2
        y = Screen.virtualY + (Screen.desktopAvailableHeight - height) / 2
    }

    onWindowClosing: close.accepted = CentralManager.reportOutputFolder === ""

    WidgetColors {
        background: ApplicationStyle.dialog_background_color
        text: ApplicationStyle.dialog_text_color_alternative
        field: ApplicationStyle.textfield_background_color
        selection: ApplicationStyle.selection_color
        selectedText: ApplicationStyle.selected_text_color
        link: ApplicationStyle.link_color
    }

    // A drag of the frame must not lay out the screens on every step, so what fills the window lets go of it
    // while the window is being resized.
    Item {
        id: _frame
        anchors.fill: parent
        opacity: root.__laidOut ? 1 : 0

        Binding {
            target: Units
            property: "__pixelDensity"
            value: Screen.pixelDensity
        }

        Rectangle {
            anchors.fill: parent
            color: ApplicationStyle.canvas_background_color

            MouseArea {
                anchors.fill: parent
                onClicked: {
                    forceActiveFocus()
                    if (CentralManager.showSearchPanel)
                        CentralManager.searchPanelMinimized = true
                    CentralManager.unhandledMouseClick(mouse)
                }
            }
        }

        FocusScope {
            id: _main
            anchors.fill: root.isResizing ? undefined : parent
            focus: true

            ActionBar {
                id: _actionBar
                z: 1
                width: _stack.currentItem === _mainScreen ? _mainScreen.leftColumnWidth : parent.width
                enabled: !root.blocked
                onQueryRequested: {
                    if (_query.item)
                        _query.item.query(twoPane, sortByLeft)
                }
                onQueryReportRequested: {
                    if (_query.item)
                        _query.item.report(leftQuery)
                }

                Behavior on width {
                    enabled: root.__laidOut
                    NumberAnimation { duration: 50 }
                }
            }

            StackView {
                id: _stack
                anchors.fill: parent
                delegate: ApplicationStyle.stack_view_delegate.createObject(_stack)
                initialItem: _mainScreen
            }

            ChatPanel {
                anchors { left: parent.left; bottom: parent.bottom; bottomMargin: Units.dp(34) }
                windowWidth: parent.width
                windowHeight: parent.height - Units.dp(34)
                enabled: !root.blocked
            }
        }

        MainScreen {
            id: _mainScreen
            actionBarHeight: _actionBar.height
        }

        // Its rows live as long as the window. Nobody who makes no query waits for it.
        Loader {
            id: _query
            visible: false
            active: false
            onLoaded: item.actionBarHeight = Qt.binding(function() { return _actionBar.height })
            source: "../QueryScreen/KernoQueryScreen.qml"
        }

        ConnectionBlocker {
            id: _blocker
            visible: false
        }

        MainDialogs {
            anchors.fill: root.isResizing ? undefined : parent
            enabled: !root.blocked
            opacity: root.blocked ? 0 : 1
            firstTime: root.showFirstTimeIntro
            onIntroductionSeen: root.showFirstTimeIntro = false
        }

        OverlayDialogs {
            anchors.fill: root.isResizing ? undefined : parent
        }
    }

    Timer {
        interval: 100
        running: root.visible
        onTriggered: root.__laidOut = true
    }

    Settings {
        property alias showFirstTimeIntro: root.showFirstTimeIntro
    }

    MessageDialogs {}

    Loader {
        active: CentralManager.showExportDOCXDialog > 0
        source: "../../dialogs/ExportDocxDialog.qml"
    }

    PartKeys {
        parent: _frame
        parts: CentralManager.showQueryScreen ? [_actionBar, _query] : [_actionBar].concat(_mainScreen.parts)
    }

    Connections {
        target: CentralManager

        function onConnectedChanged() {
            var lost = !CentralManager.connected && !CentralManager.showLogin
                    && CentralManager.region === appHelper.region
            if (lost && !root.blocked)
                _stack.push({ item: _blocker, destroyOnPop: false })
            else if (!lost && root.blocked)
                _stack.pop()
        }

        function onShowQueryScreenChanged() {
            var wasBlocked = root.blocked
            _query.active = true
            _stack.pop(_mainScreen)
            if (CentralManager.showQueryScreen)
                _stack.push({ item: _query, destroyOnPop: false })
            if (wasBlocked)
                _stack.push({ item: _blocker, destroyOnPop: false })
        }
    }
}
