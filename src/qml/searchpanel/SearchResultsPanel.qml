import QtQuick 2.15
import "../Components"

// What the last search has found. The results stay with the program: thousands of them would take their time on
// the way through a script.
SearchResultsPanelBase {
    id: root

    list: appHelper.searchResults
    filled: false
    loadMore: function(sourceId, questionId, start, length) {
        return appHelper.extendedSearchResult(sourceId, questionId, start, length)
    }

    Connections {
        target: appHelper
        function onSearchStarted() { root.searching = true }
        function onSearchFinished() {
            root.searching = false
            root.filled = true
            root.showFirst()
        }
    }
    Connections {
        target: CentralManager
        function onHasFileOpenChanged() { root.filled = false }
        function onNotifyStructuredQuestionChanged() { root.filled = false }
    }
}
