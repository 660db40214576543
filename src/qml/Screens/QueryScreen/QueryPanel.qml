import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// The criteria: one query, or two side by side.
Rectangle {
    id: root

    property bool animated: true
    // Where its lower edge is, from 0 when it is slid away to 1.
    property real out: CentralManager.showQueryPanelInQueryScreen ? 1 : 0
    readonly property real __contentHeight: Math.max(_left.height, _right.visible ? _right.height : 0)
                                            + 2 * ApplicationStyle.default_margin

    height: Math.min(parent ? parent.height / 2 : 0, __contentHeight)
    // Slid away it takes no keyboard.
    visible: out > 0
    clip: true
    color: ApplicationStyle.main_color

    Behavior on height {
        enabled: root.animated
        NumberAnimation { duration: 250; easing.type: Easing.InOutQuad }
    }
    Behavior on out {
        enabled: root.animated
        NumberAnimation { duration: 250; easing.type: Easing.InOutQuad }
    }

    function serializeLeftQuery() {
        return _left.serialize()
    }

    function serializeRightQuery() {
        return _right.serialize()
    }

    // The panel is made by the first entry, and so has missed it.
    Component.onCompleted: _lookups.refresh()

    Connections {
        target: CentralManager
        function onShowQueryScreenChanged() {
            if (CentralManager.showQueryScreen)
                _lookups.refresh()
        }
    }

    QueryLookups { id: _lookups }

    StyledScrollView {
        anchors.fill: parent
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

        Flickable {
            id: _view
            contentWidth: width
            contentHeight: root.__contentHeight
            boundsBehavior: Flickable.StopAtBounds

            QueryRows {
                id: _left
                objectName: "leftQuery"
                x: ApplicationStyle.default_margin
                y: ApplicationStyle.default_margin
                width: (CentralManager.twoPaneQuery ? _view.width / 2 : Math.min(_view.width, Units.dp(760)))
                       - 2 * ApplicationStyle.default_margin
                lookups: _lookups
                caption: CentralManager.twoPaneQuery ? qsTr("Left Query:") : qsTr("Main Query:")
            }
            QueryRows {
                id: _right
                objectName: "rightQuery"
                x: _view.width / 2 + ApplicationStyle.default_margin
                y: ApplicationStyle.default_margin
                width: _view.width / 2 - 2 * ApplicationStyle.default_margin
                visible: CentralManager.twoPaneQuery
                lookups: _lookups
                caption: qsTr("Right Query:")
            }
        }
    }
}
