import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"
import "../../Utils.js" as Utils
import ".."

// Edits the text of an answer, with its stripes beside it.
DialogPanel {
    id: root

    property var editor: CentralManager.showAnswerEditor
    readonly property int answerId: editor ? editor.answerId : -1
    readonly property int cursor: editor && editor.cursor ? editor.cursor : 0
    property string __sourceTitle

    heading: CentralManager.singleQuestionMode ? qsTr("Edit Source Text") : qsTr("Edit Answer")
    width: dialogBase ? 0.9 * dialogBase.width : implicitWidth
    height: dialogBase ? 0.9 * dialogBase.height : implicitHeight

    Component.onCompleted: __update()

    // A key that is pressed by mistake must not cost what has been written.
    Keys.onEscapePressed: {
        if (_editor.touched)
            _hint.asked = true
        else
            dialogBase.close()
    }

    function __update() {
        var answer = krnFile.answer(answerId)
        __sourceTitle = krnFile.sourceTitle(answer.sourceId)
        _editor.show(answer.questionId, answer.sourceId, answer.answer, cursor)
    }

    // What nobody has written into can follow; else both texts are kept.
    function __followOthers() {
        if (_editor.outdated && !_editor.touched && krnFile.answer(answerId).answerId > 0)
            __update()
    }

    function __save() {
        if (!_editor.outdated) {
            _editor.save()
            return true
        }
        var title = Utils.filled(qsTr("%1 (version of %2)"), __sourceTitle, CentralManager.currentAuthor)
        if (!_editor.saveAsNewSource(title))
            return false
        CentralManager.tell(Utils.filled(qsTr("Your text is the source \"%1\" now."), title))
        return true
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
        onOutdatedChanged: Qt.callLater(root.__followOthers)
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        DialogLabel {
            id: _hint
            property bool asked: false
            Layout.fillWidth: true
            text: !CentralManager.connected ? qsTr("The connection is lost. What you have written stays here until it is back.")
                : _editor.outdated ? qsTr("Somebody else has changed this text meanwhile. Yours can be saved beside it.")
                : asked ? qsTr("There are changes. Save them, or drop them by Cancel.") : ""
            visible: text !== ""
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
            enabled: CentralManager.canMutate && CentralManager.connected
            text: _editor.outdated ? qsTr("Save as New Source") : qsTr("Save")
            onClicked: {
                _save.enabled = false
                if (root.__save())
                    root.dialogBase.close()
                else
                    _save.enabled = true
            }
        }
    }
}
