import QtQuick 2.15
import "../Components"

// Stands in for a text that is not there yet. It waits for a moment, so that it does not flash during loading.
PlainText {
    id: root

    property bool empty: false
    property bool __due: false

    signal clicked()

    visible: empty && __due
    text: CentralManager.singleQuestionMode
          ? qsTr("-- This source does not have any text yet. You can edit it by clicking on this placeholder. --")
          : qsTr("-- This question does not have an answer yet. "
                 + "You can edit the answer by clicking on this text. --")
    wrapMode: Text.Wrap
    rightPadding: ApplicationStyle.default_margin
    color: ApplicationStyle.source_text_color
    opacity: 0.7
    font { family: ApplicationStyle.source_text_font_family; pointSize: CentralManager.sourceFontSize; italic: true }

    Timer {
        interval: 600
        running: true
        onTriggered: root.__due = true
    }

    MouseArea {
        anchors.fill: parent
        onClicked: root.clicked()
    }
}
