import QtQuick 2.15
import Kernova 1.4
import "../../Components"
import "TreeGeometry.js" as Geometry

// The children of a kerno, indented, with the lines that lead to them. Each has a `middle`, that of its label.
Item {
    id: root

    property int kernoId: -1
    property alias delegate: _rows.delegate
    readonly property real __indent: Units.dp(15)

    implicitHeight: _column.height

    Rectangle {
        width: Units.dp(1)
        y: -_column.spacing
        height: _column.lineEnd - y
        color: "white"
        opacity: 0.5
    }

    Column {
        id: _column

        property real lineEnd: 0

        x: root.__indent
        width: root.width - x
        spacing: Units.dp(2)
        onPositioningComplete: lineEnd = Geometry.lineEnd(children)

        Repeater {
            id: _rows
            model: KernoProxyModel { parentKernoId: root.kernoId > 0 ? root.kernoId : -2 }
        }
    }
}
