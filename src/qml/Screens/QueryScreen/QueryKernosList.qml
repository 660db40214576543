import QtQuick 2.15
import "../../Components"
import "../../Utils.js" as Utils

// The kernos that answer a query, each with a disc as large as its share of the quotes.
Item {
    id: root

    // Maps with `kerno` and `count`.
    property var result: []
    property int mostHighlightsInAKerno: 0
    property alias contentY: _list.contentY
    // The list itself makes its first row the current one; here none is until it is chosen.
    property int currentRow: -1

    signal chosen(int index)

    StyledScrollView {
        anchors.fill: parent
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

        AnimatedListView {
            id: _list
            objectName: "queryKernos"
            model: root.result.length
            activeFocusOnTab: true
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Kernos")
            Keys.onReturnPressed: if (currentIndex >= 0) root.chosen(currentIndex)

            delegate: Item {
                id: _row

                readonly property var kerno: root.result[index] ? root.result[index].kerno : ({})
                readonly property int highlightCount: root.result[index] ? root.result[index].count : 0
                readonly property bool current: index === root.currentRow

                width: _list.width
                height: Units.dp(40)

                RowHighlight {
                    anchors.fill: parent
                    selected: _row.current
                    hovered: _mouse.containsMouse
                }
                Item {
                    id: _place
                    x: Units.dp(8)
                    width: Units.dp(40)
                    height: parent.height

                    Rectangle {
                        readonly property real diameter: root.mostHighlightsInAKerno === 0 ? 10
                                : (Units.dp(40) - 10) * _row.highlightCount / root.mostHighlightsInAKerno + 10
                        anchors.centerIn: parent
                        width: diameter
                        height: diameter
                        radius: diameter / 2
                        color: _row.kerno.color || "transparent"
                    }
                }
                PlainText {
                    anchors { left: _place.right; leftMargin: Units.dp(8); right: _count.left }
                    anchors { rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                    text: Utils.stringIfEmpty(_row.kerno.title, qsTr("untitled"))
                    elide: Text.ElideRight
                    color: ApplicationStyle.source_text_color
                    font { pointSize: 20; underline: _row.current }
                }
                PlainText {
                    id: _count
                    anchors { right: parent.right; rightMargin: Units.dp(12); verticalCenter: parent.verticalCenter }
                    text: _row.highlightCount
                    color: ApplicationStyle.source_text_color
                    font { pointSize: 20; underline: _row.current }
                }
                MouseArea {
                    id: _mouse
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: root.chosen(index)
                }
            }
        }
    }

    PlainText {
        anchors.centerIn: parent
        visible: _list.count === 0
        text: qsTr("No Kernos to Display")
        color: ApplicationStyle.source_text_color
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }
}
