import QtQuick 2.15
import "../../../Components"
import ".."
import "../ViewGeometry.js" as Geometry

// One kerno of the hierarchy on the line that runs down through all of them.
FocusScope {
    id: root

    property var dataSource: null
    property int rowIndex: 0
    property int rowCount: 1
    property bool selected: false
    property alias mouseArea: _kerno.mouseArea
    property alias dropArea: _kerno.dropArea
    property alias tabStop: _kerno.tabStop
    property alias showNumberOfCodings: _kerno.showNumberOfCodings
    readonly property alias bubble: _kerno.bubble
    readonly property bool __indented: !!dataSource && dataSource.level === 2
    readonly property var __line: Geometry.rowLine(rowIndex, rowCount, height, _kerno.height)
    readonly property color __lineColor: "#6D7F93"

    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.__line.from
        width: Units.dp(3)
        height: root.__line.to - y
        color: root.__lineColor
        visible: root.rowCount > 1
    }

    Rectangle {
        x: root.width / 2
        y: _kerno.y + _kerno.height / 2 - height / 2
        width: _kerno.x + _kerno.width / 2 - x
        height: Units.dp(3)
        color: root.__lineColor
        visible: root.__indented
    }

    KernoViewBubble {
        id: _kerno
        x: (root.width - width) / 2 + (root.__indented ? Units.dp(60) : 0)
        y: Geometry.bubbleTop(root.rowIndex, root.height, height)
        focus: true
        dataSource: root.dataSource
    }

    Image {
        // The bubble is drawn larger or smaller than its square.
        x: _kerno.x + _kerno.width / 2 * (1 + _kerno.bubble.scale) + Units.dp(10)
        y: _kerno.y + (_kerno.height - height) / 2
        width: Units.dp(28)
        height: Units.dp(28)
        source: "qrc:///qml/images/kerno_arrow_left.png"
        mipmap: true
        opacity: root.selected ? 0.8 : 0
        visible: opacity > 0
    }
}
