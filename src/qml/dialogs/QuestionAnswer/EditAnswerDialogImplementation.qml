import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import ".."

// Edits the text of an answer, with its stripes beside it.
DialogPanel {
    id: root

    property var editor: CentralManager.showAnswerEditor
    readonly property int answerId: editor ? editor.answerId : -1
    readonly property int cursor: editor && editor.cursor ? editor.cursor : 0

    heading: CentralManager.singleQuestionMode ? qsTr("Edit Source Text") : qsTr("Edit Answer")
    width: dialogBase ? 0.9 * dialogBase.width : implicitWidth
    height: dialogBase ? 0.9 * dialogBase.height : implicitHeight

    Component.onCompleted: __update()

    // A key that is pressed by mistake must not cost what has been written.
    Keys.onEscapePressed: {
        if (_editor.touched)
            _hint.visible = true
        else
            dialogBase.close()
    }

    function __update() {
        var answer = krnFile.answer(answerId)
        _editor.show(answer.questionId, answer.sourceId, answer.answer, cursor)
    }

    headerItems: [
        Row {
            spacing: Units.dp(6)
            enabled: _editor.isRichText

            MarkButton {
                objectName: "markBold"
                text: "<b>B</b>"
                tooltip: qsTr("Bold")
                onClicked: _editor.mark("setBold")
            }
            MarkButton {
                objectName: "markItalic"
                text: "<i>I</i>"
                tooltip: qsTr("Italic")
                onClicked: _editor.mark("setItalic")
            }
            MarkButton {
                objectName: "markUnderline"
                text: "<u>U</u>"
                tooltip: qsTr("Underline")
                onClicked: _editor.mark("setUnderline")
            }
        }
    ]

    AnswerEditor {
        id: _editor
        Layout.fillWidth: true
        Layout.fillHeight: true
        focus: true
        leastTextHeight: 0.6 * root.height
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        DialogLabel {
            id: _hint
            Layout.fillWidth: true
            visible: false
            text: qsTr("There are changes. Save them, or drop them by Cancel.")
            elide: Text.ElideRight
            color: ApplicationStyle.orange_text_color
        }
        Item { Layout.fillWidth: true }
        StyledButton {
            text: qsTr("Cancel")
            onClicked: {
                _editor.discard()
                root.dialogBase.close()
            }
        }
        StyledButton {
            id: _save
            primary: true
            enabled: CentralManager.canMutate
            text: qsTr("Save")
            onClicked: {
                _save.enabled = false
                _editor.save()
                root.dialogBase.close()
            }
        }
    }
}
