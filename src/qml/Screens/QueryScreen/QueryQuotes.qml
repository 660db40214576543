import QtQuick 2.15
import "../../Components"
import "../../Source"
import "../../searchpanel"

// The quotes of the kerno that is chosen in a query's result.
FocusScope {
    id: root

    // Maps of highlights; null while no kerno is chosen.
    property var highlights: null

    onHighlightsChanged: {
        _quotes.list.items = (highlights ? highlights : []).map(function(highlight) {
            return { sourceId: highlight.sourceId, questionId: highlight.questionId, start: highlight.start,
                     length: highlight.length, sourceTitle: krnFile.sourceTitle(highlight.sourceId) }
        })
        _quotes.showFirst()
    }

    Rectangle {
        id: _bar
        width: parent.width
        height: Units.dp(34)
        color: ApplicationStyle.selected_tab

        QuoteActions {
            anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
            height: parent.height
            panel: _quotes
        }
    }

    QuotesView {
        id: _quotes
        anchors { top: _bar.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        inQuery: true
        textOf: function(highlight) {
            return krnFile.partialAnswer(highlight.sourceId, highlight.questionId, highlight.start,
                                         highlight.length).answer
        }
        message: root.highlights === null ? qsTr("Select Kerno to See Quotes") : qsTr("No Quotes to Display")
    }
}
