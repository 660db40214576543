import QtQuick 2.15
import "../Components"
import "../Memo"
import "../Utils.js" as Utils
import "../controls"

// One answer: its question, its memos, its stripes and its text.
Item {
    id: root

    property int questionId: -1
    property int sourceId: -1
    property string question
    property string answer
    property int offset: 0
    property bool isRichText: true
    property bool showQuestion: !CentralManager.singleQuestionMode
    property bool inQuery: false
    property bool editable: false
    property bool hasMenu: false
    property bool resizing: false
    property string filter
    property Item dragItem: null
    readonly property bool hasSelectedText: _text.selectedText !== ""
    readonly property alias selectedText: _text.selectedText
    readonly property alias length: _text.length
    readonly property alias mainTextArea: _text
    readonly property bool holdsFocus: _text.activeFocus || _stripes.activeFocus || _memos.activeFocus
    readonly property real memosWidth: inQuery ? 0 : Units.dp(25) + (_memos.notesShown
                                                                     ? CentralManager.memoColumnSize : 0)
    readonly property real questionHeight: showQuestion ? _question.height + ApplicationStyle.default_margin : 0
    readonly property bool __empty: length === 0 && answer === "" || _text.loaded && length === 0
    readonly property real heightHint: questionHeight + (_placeholder.visible ? _placeholder.height : 0)
                                       + (__empty && CentralManager.singleQuestionMode
                                          ? 0.9 * windowHeight : _text.preferredHeight + Units.dp(250))
    property real windowHeight: 0
    property bool __selectionCounted: false
    // While a key is handled.
    property bool keysMoveCursor: false

    signal showPopUp(int sourceId, int questionId, int cursor)
    signal cursorRectChanged(real x, real y, real cursorHeight, real questionHeight)

    implicitHeight: heightHint
    height: heightHint

    onQuestionIdChanged: _setTimer.restart()
    onSourceIdChanged: _setTimer.restart()
    onAnswerChanged: _setTimer.restart()
    onOffsetChanged: _setTimer.restart()
    onHasSelectedTextChanged: __countSelection(hasSelectedText)
    Component.onDestruction: __countSelection(false)

    function __countSelection(selected) {
        if (selected === __selectionCounted)
            return
        __selectionCounted = selected
        CentralManager.countSelection(selected)
    }

    // By a key: where the text has no menu, that of the coding beside the cursor.
    function __showMenu() {
        if (hasMenu)
            showPopUp(sourceId, questionId, offset + _text.cursorPosition)
        else
            _stripes.showMenuBeside(_text.cursorRectangle.y + _text.cursorRectangle.height / 2)
    }

    function __endKey() {
        keysMoveCursor = false
    }

    function __keyStarts() {
        keysMoveCursor = true
        Qt.callLater(__endKey)
    }

    // A key has gone to something beside the text.
    function __showPlace(y, height) {
        __keyStarts()
        cursorRectChanged(0, y, height, questionHeight)
    }

    function copy() {
        if (hasSelectedText) {
            appHelper.setClipboardText(Utils.filled("%1\n\n-- %2 --\n\n\n",
                                                    selectedText.replace(/\u2029|\u2028/g, "\n"),
                                                    krnFile.sourceTitle(sourceId)))
        }
    }

    function deselect() {
        _text.deselect()
    }

    // Once more, whatever stands here.
    function load() {
        _text.loaded = false
        _setTimer.restart()
    }

    // A burst of changes makes one call.
    Timer {
        id: _setTimer
        interval: 10
        onTriggered: {
            _text.setAnswer(root.questionId, root.sourceId, root.answer, root.offset)
            _text.loaded = true
        }
    }

    Row {
        id: _question
        anchors { left: parent.left; right: parent.right; leftMargin: _text.x }
        visible: root.showQuestion
        spacing: Units.dp(6)

        PlainText {
            id: _q
            text: qsTr("Q:")
            color: ApplicationStyle.source_text_color
            font { family: ApplicationStyle.source_text_font_family; bold: true
                   pointSize: CentralManager.sourceFontSize }
        }
        PlainTextEdit {
            width: parent.width - _q.width - parent.spacing
            text: root.question
            readOnly: true
            color: ApplicationStyle.source_text_color
            font { family: ApplicationStyle.source_text_font_family; bold: true
                   pointSize: CentralManager.sourceFontSize }
        }
    }

    KernovaTextEdit {
        id: _text

        property bool loaded: false

        anchors { top: parent.top; topMargin: root.questionHeight; left: _stripes.right
                  leftMargin: ApplicationStyle.default_margin }
        anchors { right: root.resizing ? undefined : parent.right; rightMargin: ApplicationStyle.default_margin }
        height: Math.max(root.height - root.questionHeight, preferredHeight)
        objectName: "answerText"
        readOnly: !root.editable
        selectByKeyboard: true
        activeFocusOnTab: true
        cursorVisible: activeFocus
        Accessible.name: root.showQuestion && root.question || qsTr("Text of the source")
        textFormat: root.isRichText ? TextEdit.RichText : TextEdit.PlainText
        currentHighlight: _stripes.hoveredHighlight
        onCursorRectangleChanged: root.cursorRectChanged(cursorRectangle.x, cursorRectangle.y,
                                                         cursorRectangle.height, root.questionHeight)
        Keys.onReleased: _dragArea.keyReleased(event)
        Keys.onPressed: {
            root.__keyStarts()
            _dragArea.keyPressed(event)
            if (Utils.asksForMenu(event)) {
                root.__showMenu()
                event.accepted = true
            }
            if (event.matches(StandardKey.Copy)) {
                root.copy()
                event.accepted = true
            }
        }
    }

    TextDragArea {
        id: _dragArea
        anchors.fill: _text
        textItem: _text
        item: root
        onClickedForMenu: root.showPopUp(root.sourceId, root.questionId, root.offset + position)
    }

    // After the text in the order of Tab, in which the text comes first.
    HighlightsBar {
        id: _stripes
        objectName: "codings"
        x: root.memosWidth
        y: root.questionHeight
        width: CentralManager.highlightsColumnWidth
        height: _text.height
        z: 1
        model: _text.highlightsModel
        columns: _text.highlightsModel ? _text.highlightsModel.columns : 1
        onReached: root.__showPlace(y, height)
        onLeft: _text.forceActiveFocus()
    }

    MemosBar {
        id: _memos
        objectName: "memos"
        y: root.questionHeight
        width: root.memosWidth
        height: _text.height
        visible: !root.inQuery
        model: _text.memosModel
        textItem: _text
        onReached: root.__showPlace(y, height)
    }

    AnswerPlaceholder {
        id: _placeholder
        anchors { left: _text.left; right: parent.right; top: _text.top }
        empty: root.__empty
        onClicked: root.showPopUp(root.sourceId, root.questionId, 0)
    }
}
