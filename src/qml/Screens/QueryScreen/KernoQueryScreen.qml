import QtQuick 2.15
import "../../Components"
import "../../controls/Window"
import "QueryResults.js" as Results

// Asks which codings answer one query or two, and shows them by kerno.
FocusScope {
    id: root

    property real actionBarHeight: 0
    property var leftResult: []
    property var rightResult: []
    // The largest number of any query so far: the discs of all queries compare.
    property int mostHighlightsInAKerno: 0
    property int leftHighlightsCount: 0
    property int rightHighlightsCount: 0

    function query(twoPane, sortByLeft) {
        var results = Results.sorted(
                _left.answer.ask(_panel.serializeLeftQuery()),
                twoPane ? _right.answer.ask(_panel.serializeRightQuery()) : [],
                twoPane, sortByLeft)
        mostHighlightsInAKerno = Math.max(mostHighlightsInAKerno, results.most)
        leftResult = results.left
        rightResult = results.right
        leftHighlightsCount = results.leftCount
        rightHighlightsCount = results.rightCount
    }

    function report(leftQuery) {
        CentralManager.reportCriteria = leftQuery ? _panel.serializeLeftQuery() : _panel.serializeRightQuery()
        CentralManager.reportRequested()
    }

    Connections {
        target: CentralManager
        function onHasFileOpenChanged() {
            root.leftResult = []
            root.rightResult = []
            _left.answer.clear()
            _right.answer.clear()
            root.leftHighlightsCount = 0
            root.rightHighlightsCount = 0
        }
    }

    Rectangle {
        anchors.fill: parent
        color: ApplicationStyle.source_background_color
    }

    QueryPanel {
        id: _panel
        y: root.actionBarHeight - (1 - out) * height
        width: parent.width
    }

    QueryResultsPanel {
        id: _left
        objectName: "leftResult"
        anchors { top: _panel.bottom; left: parent.left; bottom: _statusBar.top }
        width: CentralManager.twoPaneQuery ? parent.width / 2 : parent.width
        result: root.leftResult
        mostHighlightsInAKerno: root.mostHighlightsInAKerno
        onKernosListContentYChanged: _right.kernosListContentY = kernosListContentY
    }
    QueryResultsPanel {
        id: _right
        objectName: "rightResult"
        anchors { top: _panel.bottom; left: _left.right; right: parent.right; bottom: _statusBar.top }
        visible: CentralManager.twoPaneQuery
        result: root.rightResult
        mostHighlightsInAKerno: root.mostHighlightsInAKerno
        onKernosListContentYChanged: _left.kernosListContentY = kernosListContentY
    }

    StatusBar {
        id: _statusBar
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: Units.dp(34)
        sliderShown: false
        textRight: CentralManager.twoPaneQuery
                   ? qsTr("Left Query Highlights: %1 / Right Query Highlights: %2").arg(root.leftHighlightsCount)
                                                                                  .arg(root.rightHighlightsCount)
                   : qsTr("Main Query Highlights: %1").arg(root.leftHighlightsCount)
    }
}
