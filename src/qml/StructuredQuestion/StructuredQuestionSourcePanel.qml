import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The text of the current source: its answers, the way from question to question, and what finds a text in them.
FocusScope {
    id: root

    property Item dragItem: null
    property bool resizing: false
    readonly property alias sourceId: _answers.sourceId
    readonly property bool navigationShown: !!krnFile.questionModel && krnFile.questionModel.count > 1

    focus: true

    function goToQuestion(index) {
        _answers.goToAnswer(index)
        _navigation.currentIndex = index
    }

    Keys.onUpPressed: _answers.flick(500)
    Keys.onDownPressed: _answers.flick(-500)
    Keys.onPressed: {
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
            return
        _answers.scrollByPages(event.key === Qt.Key_PageDown ? 1 : -1)
        event.accepted = true
    }

    Connections {
        target: CentralManager
        function onCurrentSourceIdChanged() {
            if (CentralManager.currentSourceId !== root.sourceId) {
                CentralManager.currentMemoId = -1
                CentralManager.hasUserSelectedText = false
            }
            _answers.show(CentralManager.currentSourceId)
        }
    }

    TextColumns {
        anchors { top: _navigation.bottom; bottom: parent.bottom }
    }

    QuestionNavigation {
        id: _navigation
        anchors { top: parent.top; left: parent.left; right: parent.right }
        anchors.topMargin: root.navigationShown ? 0 : -height
        // Out of sight it takes no keyboard either.
        visible: anchors.topMargin > -height
        z: 1
        model: _answers.model
        onQuestionRequested: root.goToQuestion(index)
        Behavior on anchors.topMargin { NumberAnimation {} }
    }

    AnswersView {
        id: _answers
        anchors { top: _find.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        dragItem: root.dragItem
        resizing: root.resizing
        onMenuRequested: _menu.ask(answerId, isHtml, cursor, at)
        onAllLoadedChanged: {
            if (allLoaded)
                _findAgain.restart()
        }
    }

    AnswerMenu { id: _menu }

    TextZoom {
        anchors.fill: parent
        onAboutToZoom: _answers.keepPosition()
    }

    FindBar {
        id: _find
        anchors { top: _navigation.bottom; left: parent.left; right: parent.right }
        answerItems: _answers.answerItems
        onPlaceShown: _answers.showPlace(item, y, lineHeight)
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
        running: !_answers.allLoaded
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
