import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// What can be done with an answer as a whole.
StyledMenu {
    id: root

    property int answerId: -1
    property int cursor: 0

    // An HTML document of its own would lose what the editor can't show. `textItem` is the text whose cursor the menu
    // stands at, or null for the mouse.
    function ask(answer, isHtml, position, textItem) {
        if (isHtml) {
            CentralManager.showAlert(qsTr("Editing is forbidden"),
                                     qsTr("This source was created in the Web client, and can't be edited here "
                                          + "without losing formatting."))
            return
        }
        answerId = answer
        cursor = position
        if (textItem)
            popupAt(textItem, textItem.cursorRectangle.x, textItem.cursorRectangle.y + textItem.cursorRectangle.height)
        else
            popup()
    }

    MenuItem {
        text: CentralManager.singleQuestionMode ? qsTr("Edit Source Text") : qsTr("Edit Answer")
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showAnswerEditor = { answerId: root.answerId, cursor: root.cursor }
    }
}
