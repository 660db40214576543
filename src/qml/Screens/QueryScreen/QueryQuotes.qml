import QtQuick 2.15
import Kernova 1.4
import "../../Components"
import "../../Source"
import "../../searchpanel"

// The quotes of the kerno that is chosen in a query's result.
Item {
    id: root

    // Maps of highlights; null while no kerno is chosen.
    property var highlights: null
    readonly property alias quotes: _quotes

    function copySelectedParts() {
        var text = _quotes.getSelectedText()
        if (text !== "")
            appHelper.setClipboardText(text)
    }

    function __textOf(highlight) {
        return krnFile.partialAnswer(highlight.sourceId, highlight.questionId, highlight.start, highlight.length).answer
    }

    function __followCursor(item, y, cursorHeight) {
        if (!item.hasSelectedText)
            return
        var top = item.mapToItem(_view.contentItem, 0, y).y
        if (top < _view.contentY)
            _view.flick(0, 500)
        else if (top + cursorHeight > _view.contentY + _view.height)
            _view.flick(0, -500)
    }

    onHighlightsChanged: {
        _list.items = (highlights ? highlights : []).map(function(highlight) {
            return { sourceId: highlight.sourceId, questionId: highlight.questionId, start: highlight.start,
                     length: highlight.length, sourceTitle: krnFile.sourceTitle(highlight.sourceId) }
        })
        _view.contentY = 0
    }

    VariantListModel {
        id: _list
        // Batches follow resets alone.
        simplifiedItemManagement: true
    }

    FetchMoreListModel {
        id: _batches
        sourceModel: _list
    }

    Timer {
        interval: 100
        running: _quotes.allComponentsLoaded && _quotes.count < _list.count
        repeat: true
        onTriggered: {
            if (_batches.canFetchMore())
                _batches.fetchMore()
        }
    }

    Rectangle {
        id: _bar
        width: parent.width
        height: Units.dp(34)
        color: ApplicationStyle.selected_tab

        QuoteActions {
            anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
            height: parent.height
            panel: root
        }
    }

    StyledScrollView {
        anchors { top: _bar.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

        Flickable {
            id: _view
            objectName: "queryQuotes"
            contentWidth: width
            contentHeight: _column.height
            boundsBehavior: Flickable.StopAtBounds

            Column {
                id: _column
                width: _view.width
                spacing: Units.dp(20)
                topPadding: ApplicationStyle.default_margin
                bottomPadding: ApplicationStyle.default_margin

                QuotesRepeater {
                    id: _quotes
                    model: _batches
                    view: _view
                    textOf: root.__textOf
                    quote: SearchResultsItem {
                        width: _column.width
                        inQuery: true
                        expandable: false
                        showQuestion: false
                        textOf: root.__textOf
                        onCopyFromAllRequested: root.copySelectedParts()
                        onCursorRectChanged: root.__followCursor(this, y, cursorHeight)
                    }
                }
            }
        }
    }

    PlainText {
        anchors.centerIn: parent
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        visible: _quotes.count === 0
        text: root.highlights === null ? qsTr("Select Kerno to See Quotes") : qsTr("No Quotes to Display")
        color: ApplicationStyle.source_text_color
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }
}
