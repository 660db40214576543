import QtQuick 2.15
import QtQuick.Controls 1.4
import Kernova 1.0
import "../../Components"
import "../../controls"

// A text to edit, and the stripes of its coded passages, which follow the edits.
FocusScope {
    id: root

    property real leastTextHeight: 0
    readonly property bool isRichText: _text.textFormat === TextEdit.RichText
    // Whether there is something to take back.
    readonly property bool touched: _text.canUndo
    // Somebody else has changed the stored text meanwhile, or removed it.
    readonly property alias outdated: _tracker.outdated
    readonly property real __barWidth: Math.max(50, CentralManager.highlightsColumnWidth)
    property int __firstCursor: 0

    function show(questionId, sourceId, answer, cursor) {
        __firstCursor = cursor
        _tracker.trackChanges = false
        _text.setAnswer(questionId, sourceId, answer, 0)
        if (!_tracker.trackChanges)
            __track()
        _cursorTimer.start()
    }

    function __track() {
        if (_text.readOnly)
            return
        _tracker.loadInitialHighlights()
        _tracker.trackChanges = true
    }

    function mark(setter) {
        if (_text.selectionStart !== _text.selectionEnd)
            _text[setter](_text.selectionStart, _text.selectionEnd)
        _text.forceActiveFocus()
    }

    function save() {
        if (isRichText)
            _tracker.saveChanges()
        else
            _tracker.saveAnswer()
    }

    function saveAsNewSource(title) {
        return _tracker.saveAsNewSource(title)
    }

    function discard() {
        _tracker.discardChanges()
    }

    function __scrollTo(y) {
        _view.contentY = Math.max(0, Math.min(y, _view.contentHeight - _view.height))
    }

    function __keepCursorInSight() {
        var top = _text.y + _text.cursorRectangle.y
        if (top < _view.contentY)
            __scrollTo(top)
        else if (top + _text.cursorRectangle.height > _view.contentY + _view.height)
            __scrollTo(top + _text.cursorRectangle.height - _view.height)
    }

    // A page up or down, and the cursor with it.
    function __turnPage(by, selects) {
        var at = _text.cursorRectangle
        var y = at.y + by * _view.height
        var position = y < 0 ? 0 : y > _text.contentHeight ? _text.length : _text.positionAt(at.x, y)
        __scrollTo(_view.contentY + by * _view.height)
        if (selects)
            _text.moveCursorSelection(position)
        else
            _text.cursorPosition = position
    }

    DocumentChangeTracker {
        id: _tracker
        target: _text
        undoManager: root.__undoManager
    }
    readonly property QtObject __undoManager: undoManager

    Timer {
        id: _cursorTimer
        interval: 100
        onTriggered: {
            _text.cursorPosition = Math.min(root.__firstCursor, _text.length)
            _text.forceActiveFocus()
            root.__scrollTo(_text.y + _text.cursorRectangle.y - _view.height / 3)
        }
    }

    FieldFrame {
        anchors { fill: parent; leftMargin: root.__barWidth }
        focused: _text.activeFocus
    }

    StyledScrollView {
        anchors { fill: parent; topMargin: 2; bottomMargin: 2; rightMargin: 2 }
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

        Flickable {
            id: _view
            objectName: "editorView"
            contentWidth: width
            contentHeight: _text.height + 2 * _text.y
            boundsBehavior: Flickable.StopAtBounds
            interactive: false
            clip: true

            Rectangle {
                width: root.__barWidth
                height: Math.max(_view.height, _view.contentHeight)
                color: ApplicationStyle.highlights_bar_color
            }

            HighlightsBar {
                y: _text.y
                width: root.__barWidth
                height: _text.height
                interactive: false
                model: _text.highlightsModel
                columns: _text.highlightsModel ? _text.highlightsModel.columns : 1
            }

            KernovaTextEdit {
                id: _text
                objectName: "editedText"
                x: root.__barWidth + ApplicationStyle.default_margin
                y: Units.dp(6)
                width: _view.width - x - ApplicationStyle.default_margin
                height: Math.max(preferredHeight, root.leastTextHeight)
                focus: true
                readOnly: !CentralManager.canMutate
                color: ApplicationStyle.dialog_text_color_alternative
                onAnswerPreloaded: root.__track()
                onCursorRectangleChanged: root.__keepCursorInSight()
                Keys.onPressed: {
                    var page = event.key === Qt.Key_PageDown ? 1 : event.key === Qt.Key_PageUp ? -1 : 0
                    if (page !== 0) {
                        root.__turnPage(page, event.modifiers & Qt.ShiftModifier)
                        event.accepted = true
                    } else if (event.modifiers === Qt.ControlModifier && root.__setters[event.key]) {
                        root.mark(root.__setters[event.key])
                        event.accepted = true
                    }
                }
            }
        }
    }

    TextZoom { anchors.fill: parent }

    readonly property var __setters: {
        var setters = {}
        setters[Qt.Key_B] = "setBold"
        setters[Qt.Key_I] = "setItalic"
        setters[Qt.Key_U] = "setUnderline"
        return setters
    }
}
