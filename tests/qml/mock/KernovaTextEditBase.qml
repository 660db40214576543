import QtQuick 2.15
import KernovaMock 1.0

TextEdit {
    id: root

    property MockRows highlightsModel: MockRows {}
    property MockRows memosModel: MockRows {}
    property int sourceId: -1
    property int questionId: -1
    property int sourceOffset: 0
    property int currentHighlight: -1
    property real lineHeight: 0

    signal answerLoaded()
    signal answerPreloaded()

    textFormat: TextEdit.RichText

    function setAnswer(questionId, sourceId, answer, offset) {
        text = answer
        root.questionId = questionId
        root.sourceId = sourceId
        sourceOffset = offset
        answerLoaded()
    }
}
