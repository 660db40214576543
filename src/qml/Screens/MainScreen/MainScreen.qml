import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../../Components"
import "../../searchpanel"

// The canvas on the left, the sources on the right.
Item {
    id: root

    property real actionBarHeight: 0
    readonly property alias leftColumnWidth: _left.width
    readonly property alias scaleX: _left.scaleX
    readonly property alias scaleY: _left.scaleY
    readonly property alias canvasBaseScale: _left.canvasBaseScale
    readonly property alias resizing: _split.resizing
    // In their reading order.
    readonly property var parts: _left.parts.concat([_search], _right.parts)

    // What opening the memos panel has added to the right column.
    property real __widened: 0

    Binding {
        target: CentralManager
        property: "canvasBaseScale"
        value: root.canvasBaseScale
    }

    Connections {
        target: CentralManager

        function onShowMemosPanelChanged() {
            if (CentralManager.showMemosPanel) {
                var spare = _left.width - _left.Layout.minimumWidth
                root.__widened = spare >= CentralManager.memoColumnSize ? CentralManager.memoColumnSize : 0
                _right.width += root.__widened
            } else {
                _right.width -= root.__widened
                root.__widened = 0
            }
        }
    }

    SplitView {
        id: _split
        anchors.fill: parent
        orientation: Qt.Horizontal
        handleDelegate: SplitHandle { resizing: styleData.resizing }

        LeftColumn {
            id: _left
            Layout.minimumWidth: Units.dp(540)
            Layout.fillWidth: true
            enabled: CentralManager.canvasEnabled
            actionBarHeight: root.actionBarHeight
            partialAnswersPanel: _right.partialAnswersPanel
            metadataSummaryPanel: _right.metadataSummaryPanel
            textRight: CentralManager.hasFileOpen
                       ? qsTr("Source Coded: %1% (%2% total)").arg(_right.sourcePercentageCoded)
                                                              .arg(_right.globalPercentageCoded) : ""
        }

        RightColumn {
            id: _right
            Layout.minimumWidth: Units.dp(300)
            width: Math.max(Layout.minimumWidth, root.width * 0.42)
            dragItem: _dragItem
            resizing: _split.resizing
        }
    }

    SearchPanelHolder {
        id: _search
        x: _right.x - width
        y: root.actionBarHeight
        width: Units.dp(300)
        height: root.height - Units.dp(80)
        z: 20
    }

    TextDragItem {
        id: _dragItem
        z: 50
    }

    FileDropArea {
        anchors.fill: parent
        z: 60
    }
}
