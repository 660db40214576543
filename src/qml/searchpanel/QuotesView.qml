import QtQuick 2.15
import QtQuick.Controls 1.4
import Kernova 1.4
import "../Components"

// Quotes below one another. Those of a long list come to stand batch by batch.
FocusScope {
    id: root

    property VariantListModel list: VariantListModel { simplifiedItemManagement: true }
    property bool inQuery: false
    property var textOf: function(passage) { return passage.answer }
    property var offsetOf: function(passage) { return passage.start !== undefined ? passage.start : passage.offset }
    property var loadMore: function(sourceId, questionId, start, length) {
        return krnFile.partialAnswer(sourceId, questionId, start, length)
    }
    property Item dragItem: null
    property bool resizing: false
    // Stands where there are no quotes.
    property alias message: _message.text
    property alias messageShown: _message.visible
    readonly property alias quotes: _quotes
    property bool __ctrlPressed: false

    focus: true

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

    TextColumns {
        height: parent.height
        visible: !root.inQuery
    }

    StyledScrollView {
        anchors.fill: parent
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff
        verticalScrollBarPolicy: root.inQuery ? Qt.ScrollBarAsNeeded : Qt.ScrollBarAlwaysOn

        Flickable {
            id: _view
            objectName: "quotesView"
            contentWidth: width
            contentHeight: _column.height
            boundsBehavior: Flickable.StopAtBounds

            Item {
                id: _column
                width: _view.width
                height: _quotes.columnHeight

                QuotesRepeater {
                    id: _quotes
                    model: _batches
                    view: _view
                    textOf: root.textOf
                    quote: SearchResultsItem {
                        inQuery: root.inQuery
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
        id: _message
        anchors.fill: parent
        leftPadding: root.inQuery ? 0 : Units.dp(25) + CentralManager.highlightsColumnWidth
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        visible: _quotes.count === 0
        color: ApplicationStyle.source_text_color
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }
}
