import QtQuick 2.15
import "../../Components"

// What a kerno is and where it is coded, beside the mouse when it rests on a bubble.
ToolTip {
    id: root

    property int kernoId: -1
    property int overlap: -1
    property bool suppressed: false
    property alias delay: _delay.interval
    property bool __due: false
    property var __kerno: null
    property var __sources: []

    shown: __due && kernoId > 0 && !suppressed

    onKernoIdChanged: {
        __due = false
        _delay.stop()
        if (kernoId > 0)
            _delay.start()
    }
    onHideRequested: __due = false

    Timer {
        id: _delay
        interval: 2000
        onTriggered: {
            root.__kerno = krnFile.kerno(root.kernoId)
            root.__sources = krnFile.highlightsOverviewPerSourceForKerno(root.kernoId)
            root.__due = true
        }
    }

    Column {
        id: _column

        readonly property real longest: root.maximumWidth - 2 * ApplicationStyle.default_margin

        width: Math.min(Units.dp(320), longest)
        spacing: Units.dp(6)

        Item {
            width: parent.width
            height: Units.dp(28)

            Rectangle {
                width: Units.dp(28)
                height: Units.dp(28)
                radius: Units.dp(14)
                color: root.__kerno ? root.__kerno.color : "white"
            }
            PlainText {
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                width: parent.width - Units.dp(36)
                horizontalAlignment: Text.AlignRight
                text: root.__kerno && root.__kerno.title ? root.__kerno.title : qsTr("Untitled")
                elide: Text.ElideRight
                color: "white"
                font { pixelSize: ApplicationStyle.dialog_text_font_size; bold: true }
            }
        }
        PlainText {
            width: parent.width
            visible: text !== ""
            text: root.__kerno ? root.__kerno.description : ""
            wrapMode: Text.WrapAnywhere
            maximumLineCount: 3
            elide: Text.ElideRight
            color: "white"
            font.pixelSize: Units.dp(13)
        }
        ToolTipRow {
            width: parent.width
            visible: root.overlap >= 0
            name: qsTr("Overlapping codes:")
            figure: root.overlap
        }
        Rectangle {
            width: parent.width
            height: Units.dp(1)
            color: "white"
            opacity: 0.5
        }
        Repeater {
            model: root.__sources
            ToolTipRow {
                width: _column.width
                name: modelData.sourceTitle
                figure: "%1/%2".arg(modelData.kernoHighlights).arg(modelData.sourceHighlights)
            }
        }
        PlainText {
            visible: root.__sources.length === 0
            text: qsTr("No codings in any highlights.")
            color: "white"
            font.pixelSize: Units.dp(13)
        }
    }
}
