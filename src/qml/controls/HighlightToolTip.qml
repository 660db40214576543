import QtQuick 2.15
import "../Components"

// The title of the kerno whose stripe is under the mouse.
Rectangle {
    id: root

    property int highlightId: -1
    property string title

    visible: highlightId !== -1
    z: 100
    width: _title.width + 2 * Units.dp(8)
    height: _title.height + 2 * Units.dp(5)
    radius: Units.dp(4)
    color: "black"
    border { width: 1; color: "#888888" }
    opacity: 0.8

    PlainText {
        id: _title
        anchors.centerIn: parent
        text: root.title || qsTr("Untitled")
        color: "white"
        font.pixelSize: ApplicationStyle.label_font_size
    }
}
