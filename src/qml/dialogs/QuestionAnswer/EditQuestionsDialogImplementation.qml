import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../../Components"
import ".."

// Makes, words, orders and deletes the questions of a project.
DialogPanel {
    id: root

    property int minUndoStackIndex: 0
    property int editedQuestionId: -1
    property bool __undone: false
    readonly property bool __editing: editedQuestionId !== -1

    heading: qsTr("Edit Questions")
    width: dialogBase ? 0.9 * dialogBase.width : implicitWidth

    Component.onCompleted: minUndoStackIndex = undoManager.index

    Keys.onEscapePressed: {
        if (__editing)
            __edit(-1, "")
        else
            dialogBase.close()
    }

    function __edit(questionId, text) {
        editedQuestionId = questionId
        // The text area asks where its cursor is before it moves it into a shorter text.
        _question.cursorPosition = 0
        _question.text = text
        _question.cursorPosition = text.length
        _error.text = ""
        _question.forceActiveFocus()
    }

    function __save() {
        var text = _question.text.trim()
        var stored = __editing ? krnFile.question(editedQuestionId) : null
        if (!stored || text !== stored.question) {
            if (krnFile.hasQuestion(text)) {
                _error.text = qsTr("Question already exists!")
                return
            }
            var record = stored || instantiator.question(true)
            record.question = text
            if (stored)
                undoManager.updateQuestion(record)
            else
                undoManager.addQuestion(record)
            __undone = false
        }
        __edit(-1, "")
    }

    function __move(index, by) {
        var moved = krnFile.questionModel.get(index)
        var neighbour = krnFile.questionModel.get(index + by)
        var order = moved.questionOrder
        moved.questionOrder = neighbour.questionOrder
        neighbour.questionOrder = order
        undoManager.updateQuestion(moved)
        undoManager.updateQuestion(neighbour)
        __undone = false
        _scrollTimer.index = index + by
        _scrollTimer.restart()
    }

    function __delete(questionId) {
        if (questionId === editedQuestionId)
            __edit(-1, "")
        undoManager.deleteQuestion(questionId)
        __undone = false
    }

    Timer {
        id: _scrollTimer
        property int index: -1
        interval: 300
        onTriggered: _list.positionViewAtIndex(index, ListView.Contain)
    }

    Timer {
        interval: 4000
        running: _error.text !== ""
        onTriggered: _error.text = ""
    }

    DialogLabel { text: root.__editing ? qsTr("Editing question:") : qsTr("New question:") }

    StyledTextArea {
        id: _question
        objectName: "questionText"
        Accessible.name: root.__editing ? qsTr("Editing question") : qsTr("New question")
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(64)
        focus: true
        readOnly: !CentralManager.canMutate
    }

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel {
            id: _error
            Layout.fillWidth: true
            color: ApplicationStyle.error_text_color
        }
        StyledButton {
            enabled: undoManager.index > root.minUndoStackIndex
            text: qsTr("Undo")
            onClicked: {
                undoManager.undo()
                root.__undone = true
            }
        }
        StyledButton {
            enabled: root.__undone && undoManager.canRedo
            text: qsTr("Redo")
            onClicked: undoManager.redo()
        }
        StyledButton {
            primary: true
            enabled: CentralManager.canMutate && _question.text.trim() !== ""
            text: qsTr("Save")
            onClicked: root.__save()
        }
    }

    FieldFrame {
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(300)

        StyledScrollView {
            anchors { fill: parent; margins: 2 }

            ListView {
                id: _list
                objectName: "questionsList"
                model: krnFile.questionModel
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                delegate: QuestionRow {
                    width: ListView.view.width
                    questionId: model.questionId
                    question: model.question
                    first: index === 0
                    last: index === _list.count - 1
                    selected: questionId === root.editedQuestionId
                    onChosen: {
                        if (CentralManager.canMutate)
                            root.__edit(questionId, question)
                    }
                    onMoveRequested: root.__move(index, by)
                    onRemoveRequested: root.__delete(questionId)
                }
            }
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton {
            text: qsTr("Close")
            onClicked: root.dialogBase.close()
        }
    }
}
