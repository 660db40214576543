import QtQuick 2.15
import "../Components"

// Steps through the questions of a source.
Rectangle {
    id: root

    property alias model: _questions.model
    property alias currentIndex: _questions.currentIndex

    signal questionRequested(int index)

    height: Units.dp(36)
    color: ApplicationStyle.selected_tab_alternative

    IconButton {
        id: _previous
        anchors { left: parent.left; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        icon: "arrow-left"
        tooltip: qsTr("Previous question")
        enabled: _questions.currentIndex > 0
        onClicked: root.questionRequested(_questions.currentIndex - 1)
    }

    ArrowComboBox {
        id: _questions
        anchors { left: _previous.right; right: _next.left; verticalCenter: parent.verticalCenter }
        anchors { leftMargin: Units.dp(8); rightMargin: Units.dp(8) }
        textRole: "question"
        editable: true
        tooltip: qsTr("Go directly to question...")
        onActivated: root.questionRequested(index)
    }

    IconButton {
        id: _next
        anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        icon: "arrow-right"
        tooltip: qsTr("Next question")
        enabled: _questions.currentIndex < _questions.count - 1
        onClicked: root.questionRequested(_questions.currentIndex + 1)
    }
}
