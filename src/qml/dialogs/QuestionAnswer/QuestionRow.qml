import QtQuick 2.15
import "../../Components"

// One question in the list of all: a click edits it.
RowHighlight {
    id: root

    property int questionId: -1
    property string question
    property bool first: false
    property bool last: false

    signal chosen()
    signal moveRequested(int by)
    signal removeRequested()

    height: Math.max(Units.dp(50), _texts.height + 2 * Units.dp(8))
    hovered: _mouse.containsMouse

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: CentralManager.canMutate ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: root.chosen()
    }

    Column {
        id: _texts
        anchors { left: parent.left; right: _buttons.left; verticalCenter: parent.verticalCenter }
        anchors { leftMargin: Units.dp(8); rightMargin: ApplicationStyle.default_margin }
        spacing: Units.dp(2)

        PlainText {
            width: parent.width
            text: qsTr("Question ID: %1").arg(root.questionId)
            color: ApplicationStyle.dialog_text_color_alternative
            opacity: 0.7
            font.pixelSize: Units.dp(11)
        }
        PlainText {
            width: parent.width
            text: root.question || qsTr("(Without words yet)")
            wrapMode: Text.Wrap
            color: ApplicationStyle.dialog_text_color_alternative
            font { family: ApplicationStyle.source_text_font_family; pointSize: CentralManager.sourceFontSize
                   italic: root.question === "" }
        }
    }

    Row {
        id: _buttons
        anchors { right: parent.right; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        spacing: Units.dp(10)

        IconButton {
            enabled: CentralManager.canMutate && !root.first
            icon: "arrow-up"
            iconSize: Units.dp(20)
            tooltip: qsTr("Move this question up.")
            onClicked: root.moveRequested(-1)
        }
        IconButton {
            enabled: CentralManager.canMutate && !root.last
            icon: "arrow-down"
            iconSize: Units.dp(20)
            tooltip: qsTr("Move this question down.")
            onClicked: root.moveRequested(1)
        }
        IconButton {
            enabled: CentralManager.canMutate
            icon: "delete"
            iconSize: Units.dp(20)
            tooltip: qsTr("Delete this question.")
            onClicked: root.removeRequested()
        }
    }
}
