import QtQuick 2.15
import "../Components"

// Where the search panel slides, beside the sources.
Item {
    id: root

    // Nobody who does not search waits for the panel. Once made it stays, with what was entered.
    property bool __wanted: false

    clip: true
    // Slid away it takes part in nothing.
    visible: CentralManager.showSearchPanel || _slide.running

    Connections {
        target: CentralManager
        function onShowSearchPanelChanged() {
            if (CentralManager.showSearchPanel)
                root.__wanted = true
        }
    }

    Loader {
        id: _panel
        objectName: "searchPanel"
        active: root.__wanted
        sourceComponent: SearchPanel {}
        width: root.width
        anchors { top: root.top; bottom: root.bottom; left: root.right }
        enabled: CentralManager.showSearchPanel
        state: !CentralManager.showSearchPanel ? ""
             : CentralManager.searchPanelMinimized ? "expandedMinimized" : "expanded"
        onStateChanged: __focus()
        onLoaded: __focus()

        function __focus() {
            if (item && state === "expanded")
                item.focusTerm()
        }

        states: [
            State {
                name: "expanded"
                AnchorChanges { target: _panel; anchors.left: root.left }
            },
            State {
                name: "expandedMinimized"
                PropertyChanges {
                    target: _panel
                    anchors.leftMargin: _panel.item ? -_panel.item.implicitMinimizedWidth : 0
                }
            }
        ]
        transitions: Transition {
            id: _slide
            enabled: CentralManager.animationsOn
            AnchorAnimation { duration: 250; easing.type: Easing.InOutQuad }
            NumberAnimation { property: "anchors.leftMargin"; duration: 250; easing.type: Easing.InOutQuad }
        }
    }
}
