import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"
import "../StructuredQuestion"
import "../Utils.js" as Utils

// A passage of an answer with its question and its source. It can be selected, coded and copied from like any text, and
// more of the answer can be read on both sides of it.
Item {
    id: root

    // A map with the ids, the text and where it begins.
    property var passage: null
    property var textOf: function(passage) { return passage.answer }
    property var offsetOf: function(passage) { return passage.start !== undefined ? passage.start : passage.offset }
    // Gives a longer passage as an object with `answer` and `offset`.
    property var loadMore: function(sourceId, questionId, start, length) {
        return krnFile.partialAnswer(sourceId, questionId, start, length)
    }
    // A query's quotes stand alone: without their question, and as they were coded.
    property bool inQuery: false
    property bool ctrlPressed: false
    property Item dragItem: null
    property bool resizing: false

    readonly property bool __showQuestion: !inQuery && !CentralManager.singleQuestionMode
    // It was seen before: made anew, it stands at once.
    property bool seen: false
    // More of the answer was read than was found.
    property bool extended: false
    readonly property bool textReady: _text.mainTextArea.loaded
    readonly property alias holdsFocus: _text.holdsFocus
    readonly property alias hasSelectedText: _text.hasSelectedText
    readonly property string selectedText: _text.selectedText.replace(/\u2029|\u2028/g, "\n")
    readonly property bool allSelected: hasSelectedText && _text.selectedText.length === _text.length
    readonly property string sourceTitle: passage && passage.sourceTitle ? passage.sourceTitle : ""
    readonly property real __columnsWidth: _text.memosWidth + CentralManager.highlightsColumnWidth
                                           + ApplicationStyle.default_margin

    signal selectionChanged()
    signal copyFromAllRequested()
    signal cursorRectChanged(real x, real y, real cursorHeight, real questionHeight)

    implicitHeight: _column.height
    opacity: seen && textReady ? 1 : 0.01

    Accessible.role: Accessible.Grouping
    Accessible.name: Utils.filled(qsTr("Quote from %1"), sourceTitle)

    function selectAll() {
        _text.mainTextArea.selectAll()
    }

    function deselect() {
        _text.deselect()
    }

    // The passage is text and place; a longer one takes the place of both.
    function __take(text, offset) {
        _text.answer = text
        _text.offset = offset
        _before.exhausted = offset === 0
    }

    // Nothing comes of an answer that can't be read any more; what stands here stays. False then, too.
    function __extend(start, length) {
        var before = _text.answer
        var more = loadMore(_text.sourceId, _text.questionId, start, length)
        if (more.answerId < 1 || more.answer === before)
            return false
        __take(more.answer, more.offset)
        extended = true
        return true
    }

    function loadMoreBefore() {
        var start = Math.max(0, _text.offset - Math.min(300, Math.max(_text.length, 20)))
        __extend(start, _text.offset - start + _text.length)
    }

    function loadMoreAfter() {
        _after.exhausted = !__extend(_text.offset, _text.length + 80)
    }

    onPassageChanged: {
        if (!passage)
            return
        _text.sourceId = passage.sourceId
        _text.questionId = passage.questionId
        _after.exhausted = false
        extended = false
        __take(textOf(passage), offsetOf(passage))
        _text.load()
        if (!seen)
            _finding.restart()
    }
    onHasSelectedTextChanged: selectionChanged()
    onAllSelectedChanged: selectionChanged()

    // Texts find their places first.
    Timer {
        id: _finding
        interval: 500
        running: !root.seen
        onTriggered: root.seen = true
    }

    Column {
        id: _column
        width: root.width
        spacing: Units.dp(4)

        Item {
            width: parent.width
            height: Units.dp(26)

            MoreButton {
                id: _before
                x: root.__columnsWidth
                anchors.verticalCenter: parent.verticalCenter
                visible: !root.inQuery
                tooltip: qsTr("Load more before")
                onClicked: root.loadMoreBefore()
            }
            Image {
                id: _questionIcon
                anchors { left: _before.right; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                width: Units.dp(18)
                height: Units.dp(18)
                visible: root.__showQuestion
                mipmap: true
                source: Utils.iconSourceForTheme("question", ApplicationStyle.dark)
            }
            PlainText {
                anchors { left: _questionIcon.right; leftMargin: Units.dp(6); right: _copy.left }
                anchors { rightMargin: Units.dp(6); verticalCenter: parent.verticalCenter }
                visible: root.__showQuestion
                text: root.passage && root.passage.question ? root.passage.question : ""
                elide: Text.ElideRight
                color: ApplicationStyle.source_text_color
                font.pixelSize: Units.dp(12)
            }
            IconButton {
                id: _copy
                objectName: "copyQuote"
                anchors { right: _all.left; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                icon: "copy"
                iconSize: Units.dp(18)
                enabled: root.hasSelectedText || root.ctrlPressed
                tooltip: root.ctrlPressed ? qsTr("Copy Selected Text from All Quotes")
                                          : qsTr("Copy Selected Text (Use %1 Key to Copy from All Quotes)").arg("ctrl")
                onClicked: {
                    if (root.ctrlPressed)
                        root.copyFromAllRequested()
                    else
                        _text.copy()
                }
            }
            SelectAllBox {
                id: _all
                anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin
                          verticalCenter: parent.verticalCenter }
                allSelected: root.allSelected
                tooltip: qsTr("(De)Select All from This Quote")
                onToggled: {
                    if (select)
                        root.selectAll()
                    else
                        root.deselect()
                }
            }
        }

        StructuredQuestionItem {
            id: _text
            width: parent.width
            height: mainTextArea.preferredHeight
            showQuestion: false
            inQuery: root.inQuery
            dragItem: root.dragItem
            resizing: root.resizing
            onCursorRectChanged: root.cursorRectChanged(x, y, cursorHeight, questionHeight)
        }

        Item {
            width: parent.width
            height: Units.dp(26)

            MoreButton {
                id: _after
                x: root.__columnsWidth
                anchors.verticalCenter: parent.verticalCenter
                visible: !root.inQuery
                tooltip: qsTr("Load more after")
                onClicked: root.loadMoreAfter()
            }
            Image {
                id: _quoteIcon
                anchors { left: _after.right; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                width: Units.dp(18)
                height: Units.dp(18)
                mipmap: true
                source: Utils.iconSourceForTheme("quote", ApplicationStyle.dark)
            }
            PlainText {
                anchors { left: _quoteIcon.right; leftMargin: Units.dp(6); right: parent.right }
                anchors { rightMargin: ApplicationStyle.default_margin; verticalCenter: parent.verticalCenter }
                text: root.sourceTitle
                elide: Text.ElideMiddle
                color: ApplicationStyle.default_text_color
                font.pixelSize: Units.dp(12)
            }
        }
    }
}
