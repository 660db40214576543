import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// Passages of many answers beside the canvas. What their kinds differ in is said by the properties.
QuotesView {
    id: root

    // Null as long as nothing was looked for. A kind that has its passages in a list of its own says so in `filled`.
    property var results: null
    property bool filled: results !== null
    property string noResultsMessage: qsTr("No Results to Display")
    property string noDataMessage: qsTr("No Data to Display")
    property bool searching: false

    textOf: function(passage) { return passage.text !== undefined ? passage.text : passage.answer }
    offsetOf: function(passage) { return passage.startIndex !== undefined ? passage.startIndex : passage.offset }
    message: filled ? noResultsMessage : noDataMessage
    messageShown: !searching && quotes.count === 0

    function resetModel() {
        results = null
        list.clear()
    }

    onResultsChanged: {
        if (results)
            list.items = results
        showFirst()
    }

    // Offsets may hold no longer.
    Connections {
        target: CentralManager
        function onNotifyStructuredQuestionChanged() { root.resetModel() }
        function onHasFileOpenChanged() { root.resetModel() }
    }

    BusyIndicator {
        anchors.centerIn: parent
        running: root.searching
        visible: running
    }

    // How many of all results stand.
    Rectangle {
        anchors { left: parent.left; bottom: parent.bottom }
        width: parent.width * root.quotes.completedComponents / Math.max(1, root.list.count)
        height: Units.dp(4)
        visible: root.quotes.completedComponents < root.list.count
        color: ApplicationStyle.orrange_button_color
    }
}
