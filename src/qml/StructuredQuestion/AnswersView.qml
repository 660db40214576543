import QtQuick 2.15
import QtQuick.Window 2.15
import Kernova 1.4
import "../Components"

// The answers of a source below one another. Each source is found again where it was left.
Item {
    id: root

    property Item dragItem: null
    property bool resizing: false
    property int sourceId: -1
    readonly property alias model: _model
    readonly property alias count: _answers.count
    readonly property bool allLoaded: count === 0 || __loadedCount >= count
    property int __loadedCount: 0
    // The view is to go where it was as soon as all is there: at once, or in a movement.
    property bool __restoreDue: false
    property bool __restoreMoves: false

    // `at` is the text whose cursor the menu comes up at, or null for the mouse.
    signal menuRequested(int answerId, bool isHtml, int cursor, Item at)

    onResizingChanged: {
        if (resizing)
            _positions.save(sourceId)
        else
            __restore(true)
    }
    onAllLoadedChanged: {
        if (allLoaded)
            _restoreTimer.restart()
    }

    function show(id) {
        if (id === sourceId)
            return
        if (allLoaded)
            _positions.save(sourceId)
        // The items are made anew for each source.
        _answers.model = null
        sourceId = id
        _model.sourceId = id
        _answers.model = _model
        __restore(true)
    }

    // In their order; empty while some are missing.
    function answerItems() {
        return allLoaded ? _answers.allItems.map(function(loader) { return loader.item })
                                            .filter(function(item) { return !!item }) : []
    }

    // Answers come and go while their source is read.
    function keepPosition() {
        if (!__restoreDue && allLoaded)
            _positions.save(sourceId)
        if (count > 0)
            __restore(false)
    }

    function goToAnswer(index) {
        var item = _answers.itemAt(index)
        if (item)
            __scrollTo(item.y - _column.topPadding, true)
    }

    function showPlace(item, y, lineHeight) {
        var top = item.mapToItem(_view.contentItem, 0, item.questionHeight + y).y
        if (top < _view.contentY || top + lineHeight > _view.contentY + _view.height)
            __scrollTo(top - _view.height / 3, false)
    }

    function flick(velocity) {
        _view.flick(0, velocity)
    }

    function scrollByPages(pages) {
        __scrollTo(_view.contentY + pages * _view.height, false)
    }

    function __countLoaded() {
        __loadedCount = _answers.allItems.filter(function(loader) { return !!loader.item }).length
    }

    function __restore(moves) {
        __restoreDue = true
        __restoreMoves = moves
        _restoreTimer.restart()
    }

    function __scrollTo(y, animated) {
        var target = Math.max(0, Math.min(y, _view.contentHeight - _view.height))
        _scroll.stop()
        if (animated && target !== _view.contentY) {
            _scroll.to = target
            _scroll.start()
        } else {
            _view.contentY = target
        }
    }

    // Keeps the end of a growing selection in sight.
    function __followCursor(item, y, cursorHeight, questionHeight) {
        var top = item.mapToItem(_view.contentItem, 0, questionHeight + y).y
        if (item.keysMoveCursor)
            return __showLine(top, cursorHeight)
        if (!item.hasSelectedText)
            return
        if (top < _view.contentY)
            _view.flick(0, 500)
        else if (top + cursorHeight > _view.contentY + _view.height)
            _view.flick(0, -500)
    }

    // The keys move the cursor by lines, and the view follows at once.
    function __showLine(top, lineHeight) {
        if (top < _view.contentY)
            __scrollTo(top, false)
        else if (top + lineHeight > _view.contentY + _view.height)
            __scrollTo(top + lineHeight - _view.height, false)
    }

    AnswerModel { id: _model }

    ScrollPositions {
        id: _positions
        view: _view
        answerItems: root.answerItems
    }

    Connections {
        target: _model
        function onRowsAboutToBeInserted() { root.keepPosition() }
        function onRowsAboutToBeRemoved() { root.keepPosition() }
        function onModelAboutToBeReset() { root.keepPosition() }
    }
    Connections {
        target: CentralManager
        function onHasFileOpenChanged() { _positions.clear() }
    }

    Timer {
        id: _restoreTimer
        interval: 50
        onTriggered: {
            if (!root.allLoaded || !root.__restoreDue)
                return
            root.__restoreDue = false
            root.__scrollTo(_positions.restored(root.sourceId), root.__restoreMoves)
        }
    }

    NumberAnimation {
        id: _scroll
        target: _view
        property: "contentY"
        duration: 300
        easing.type: Easing.InOutCubic
    }

    StyledScrollView {
        anchors.fill: parent
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff
        verticalScrollBarPolicy: Qt.ScrollBarAlwaysOn

        Flickable {
            id: _view
            objectName: "answersView"
            contentWidth: width
            contentHeight: _column.height
            boundsBehavior: Flickable.StopAtBounds

            Column {
                id: _column
                width: _view.width
                spacing: ApplicationStyle.default_dialog_margin
                topPadding: ApplicationStyle.default_margin

                CustomRepeater {
                    id: _answers
                    model: _model
                    onAllItemsChanged: root.__countLoaded()

                    Loader {
                        id: _loader

                        property var row: model

                        width: _column.width
                        height: item ? item.heightHint : root.height
                        asynchronous: true
                        onLoaded: root.__countLoaded()
                        sourceComponent: StructuredQuestionItem {
                            width: _loader.width
                            questionId: _loader.row.questionId
                            sourceId: root.sourceId
                            question: _loader.row.question || ""
                            answer: _loader.row.answer || ""
                            dragItem: root.dragItem
                            resizing: root.resizing
                            windowHeight: root.Window.height
                            hasMenu: true
                            onShowPopUp: root.menuRequested(_loader.row.answerId, _loader.row.isHtml, cursor,
                                                            keysMoveCursor ? mainTextArea : null)
                            onCursorRectChanged: root.__followCursor(this, y, cursorHeight, questionHeight)
                        }
                    }
                }
            }
        }
    }
}
