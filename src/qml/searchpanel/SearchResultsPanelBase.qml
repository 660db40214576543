import QtQuick 2.15
import QtQuick.Controls 1.4
import Kernova 1.4
import "../Components"

// Passages of many answers, below one another. What their kinds differ in is said by the properties.
FocusScope {
    id: root

    // Null as long as nothing was looked for.
    property var results: null
    // Where the passages stand. A kind that has them from elsewhere says so here, and in `filled`.
    property VariantListModel list: VariantListModel { simplifiedItemManagement: true }
    property bool filled: results !== null
    property var textOf: function(passage) { return passage.text !== undefined ? passage.text : passage.answer }
    property var offsetOf: function(passage) {
        return passage.startIndex !== undefined ? passage.startIndex : passage.offset
    }
    property var loadMore: function(sourceId, questionId, start, length) {
        return krnFile.partialAnswer(sourceId, questionId, start, length)
    }
    property string noResultsMessage: qsTr("No Results to Display")
    property string noDataMessage: qsTr("No Data to Display")
    property bool searching: false
    property Item dragItem: null
    property bool resizing: false
    readonly property alias quotes: _quotes
    property bool __ctrlPressed: false

    focus: true

    function resetModel() {
        results = null
        list.clear()
    }

    function showFirst() {
        _view.contentY = 0
    }

    function copySelectedParts() {
        var text = _quotes.getSelectedText()
        if (text !== "")
            appHelper.setClipboardText(text)
    }

    // Keeps the end of a growing selection in sight.
    function __followCursor(item, y, cursorHeight) {
        if (!item.hasSelectedText)
            return
        var top = item.mapToItem(_view.contentItem, 0, y).y
        if (top < _view.contentY)
            _view.flick(0, 500)
        else if (top + cursorHeight > _view.contentY + _view.height)
            _view.flick(0, -500)
    }

    function __scrollBy(length) {
        _view.contentY = Math.max(0, Math.min(_view.contentY + length, _view.contentHeight - _view.height))
    }

    onResultsChanged: {
        if (results)
            list.items = results
        showFirst()
    }

    Keys.onUpPressed: _view.flick(0, 500)
    Keys.onDownPressed: _view.flick(0, -500)
    Keys.onPressed: {
        if (event.key === Qt.Key_Control)
            __ctrlPressed = true
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
            return
        __scrollBy(event.key === Qt.Key_PageDown ? _view.height : -_view.height)
        event.accepted = true
    }
    Keys.onReleased: {
        if (event.key === Qt.Key_Control)
            __ctrlPressed = false
    }
    onActiveFocusChanged: __ctrlPressed = false

    // Offsets may hold no longer.
    Connections {
        target: CentralManager
        function onNotifyStructuredQuestionChanged() { root.resetModel() }
        function onHasFileOpenChanged() { root.resetModel() }
    }

    FetchMoreListModel {
        id: _batches
        sourceModel: root.list
    }

    Timer {
        interval: 100
        running: _quotes.allComponentsLoaded && _quotes.count < root.list.count
        repeat: true
        onTriggered: {
            if (_batches.canFetchMore())
                _batches.fetchMore()
        }
    }

    Row {
        anchors { top: parent.top; bottom: parent.bottom }

        Rectangle {
            width: CentralManager.showMemosPanel ? CentralManager.memoColumnSize : 0
            height: parent.height
            color: ApplicationStyle.memo_background_color
        }
        Rectangle {
            width: Units.dp(25)
            height: parent.height
            color: ApplicationStyle.memo_background_color
        }
        Rectangle {
            width: CentralManager.highlightsColumnWidth
            height: parent.height
            color: ApplicationStyle.highlights_bar_color
        }
    }

    StyledScrollView {
        anchors.fill: parent
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff
        verticalScrollBarPolicy: Qt.ScrollBarAlwaysOn

        Flickable {
            id: _view
            objectName: "quotesView"
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
                    textOf: root.textOf
                    quote: SearchResultsItem {
                        width: _column.width
                        textOf: root.textOf
                        offsetOf: root.offsetOf
                        loadMore: root.loadMore
                        ctrlPressed: root.__ctrlPressed
                        dragItem: root.dragItem
                        resizing: root.resizing
                        onCopyFromAllRequested: root.copySelectedParts()
                        onCursorRectChanged: root.__followCursor(this, y, cursorHeight)
                    }
                }
            }
        }
    }

    PlainText {
        anchors.fill: parent
        leftPadding: Units.dp(25) + CentralManager.highlightsColumnWidth
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        visible: !root.searching && _quotes.count === 0
        text: root.filled ? root.noResultsMessage : root.noDataMessage
        color: ApplicationStyle.source_text_color
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }

    BusyIndicator {
        anchors.centerIn: parent
        running: root.searching
        visible: running
    }

    // How many of all results stand.
    Rectangle {
        anchors { left: parent.left; bottom: parent.bottom }
        width: parent.width * _quotes.completedComponents / Math.max(1, root.list.count)
        height: Units.dp(4)
        visible: _quotes.completedComponents < root.list.count
        color: ApplicationStyle.orrange_button_color
    }
}
