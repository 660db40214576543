import QtQuick 2.15
import QtQuick.Window 2.15
import QtQuick.Controls 1.4
import Kernova 1.4
import "../Components"

// The text of the current source, as the list of its answers.
FocusScope {
    id: root

    property Item dragItem: null
    property bool resizing: false
    property int sourceId: -1
    readonly property bool allLoaded: _answers.count === 0 || __loadedCount >= _answers.count
    readonly property bool navigationShown: _answers.count > 1
    property int __loadedCount: 0
    // The view is to go where it was as soon as all is there: at once, or in a movement.
    property bool __restoreDue: false
    property bool __restoreMoves: false

    focus: true

    onResizingChanged: {
        if (resizing)
            _positions.save(sourceId)
        else
            __restore(true)
    }
    onAllLoadedChanged: {
        if (allLoaded) {
            _restoreTimer.restart()
            _findAgain.restart()
        }
    }

    function __showSource(id) {
        if (id === sourceId)
            return
        if (allLoaded)
            _positions.save(sourceId)
        CentralManager.currentMemoId = -1
        CentralManager.hasUserSelectedText = false
        // The items are made anew for each source.
        _answers.model = null
        sourceId = id
        _model.sourceId = id
        _answers.model = _model
        __restore(true)
    }

    function __countLoaded() {
        __loadedCount = _answers.allItems.filter(function(loader) { return !!loader.item }).length
    }

    function __restore(moves) {
        __restoreDue = true
        __restoreMoves = moves
        _restoreTimer.restart()
    }

    // Answers come and go while their source is read.
    function __keepPosition() {
        if (!__restoreDue && allLoaded)
            _positions.save(sourceId)
        if (_answers.count > 0)
            __restore(false)
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

    // In their order; empty while some are missing.
    function __answerItems() {
        return allLoaded ? _answers.allItems.map(function(loader) { return loader.item })
                                            .filter(function(item) { return !!item }) : []
    }

    function __showPlace(item, y, lineHeight) {
        var top = item.mapToItem(_view.contentItem, 0, item.questionHeight + y).y
        if (top < _view.contentY || top + lineHeight > _view.contentY + _view.height)
            __scrollTo(top - _view.height / 3, false)
    }

    function goToQuestion(index) {
        var item = _answers.itemAt(index)
        if (item)
            __scrollTo(item.y - _column.topPadding, true)
        _navigation.currentIndex = index
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

    Keys.onUpPressed: _view.flick(0, 500)
    Keys.onDownPressed: _view.flick(0, -500)
    Keys.onPressed: {
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
            return
        __scrollTo(_view.contentY + (event.key === Qt.Key_PageDown ? _view.height : -_view.height), false)
        event.accepted = true
    }

    AnswerModel { id: _model }

    ScrollPositions {
        id: _positions
        view: _view
        answerItems: root.__answerItems
    }

    Connections {
        target: _model
        function onRowsAboutToBeInserted() { root.__keepPosition() }
        function onRowsAboutToBeRemoved() { root.__keepPosition() }
        function onModelAboutToBeReset() { root.__keepPosition() }
    }

    Connections {
        target: CentralManager
        function onCurrentSourceIdChanged() { root.__showSource(CentralManager.currentSourceId) }
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

    Row {
        anchors { top: _navigation.bottom; bottom: parent.bottom }
        readonly property bool notesShown: CentralManager.showMemosPanel && !CentralManager.showQueryScreen

        Rectangle {
            width: parent.notesShown ? CentralManager.memoColumnSize : 0
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

    QuestionNavigation {
        id: _navigation
        anchors { top: parent.top; left: parent.left; right: parent.right }
        anchors.topMargin: root.navigationShown ? 0 : -height
        // Out of sight it takes no keyboard either.
        visible: anchors.topMargin > -height
        z: 1
        model: _model
        onQuestionRequested: root.goToQuestion(index)
        Behavior on anchors.topMargin { NumberAnimation {} }
    }

    StyledScrollView {
        anchors { top: _find.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
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
                            onShowPopUp: _menu.ask(_loader.row.answerId, _loader.row.isHtml, cursor)
                            onCursorRectChanged: root.__followCursor(this, y, cursorHeight, questionHeight)
                        }
                    }
                }
            }
        }
    }

    AnswerMenu { id: _menu }

    TextZoom {
        anchors.fill: parent
        onAboutToZoom: root.__keepPosition()
    }

    FindBar {
        id: _find
        anchors { top: _navigation.bottom; left: parent.left; right: parent.right }
        answerItems: root.__answerItems
        onPlaceShown: root.__showPlace(item, y, lineHeight)
        onClosed: root.forceActiveFocus()
    }

    // The texts of another source are set a moment after their items are there.
    Timer {
        id: _findAgain
        interval: 100
        onTriggered: _find.search()
    }

    Shortcut {
        sequence: StandardKey.Find
        enabled: root.visible && CentralManager.overlayCount === 0 && root.sourceId > 0
        onActivated: _find.open()
    }
    Shortcut {
        sequence: StandardKey.FindNext
        enabled: _find.visible
        onActivated: _find.step(1)
    }
    Shortcut {
        sequence: StandardKey.FindPrevious
        enabled: _find.visible
        onActivated: _find.step(-1)
    }

    BusyIndicator {
        anchors.centerIn: parent
        running: !root.allLoaded
        visible: running
    }

    EmptyMessage {
        anchors.fill: parent
        visible: CentralManager.hasFileOpen && (root.sourceId < 1 || _answers.count === 0 && !_waiting.running)
        noSource: CentralManager.singleQuestionMode || root.sourceId < 1
    }

    // The rows of a source just chosen arrive a moment later.
    Timer {
        id: _waiting
        interval: 300
        running: root.sourceId > 0 && _answers.count === 0
    }
}
