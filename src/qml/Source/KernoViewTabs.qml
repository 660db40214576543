import QtQuick 2.15
import "../Components"

// What the right column shows of a view of kernos, in the place of the sources' tabs.
Rectangle {
    id: root

    height: Units.dp(30)
    color: ApplicationStyle.bar_background_color

    TabShape {
        anchors { left: parent.left; leftMargin: Units.dp(8); top: parent.top; topMargin: Units.dp(3) }
        anchors.bottom: parent.bottom
        width: Math.min(Units.dp(180), root.width - 2 * anchors.leftMargin)
        selected: !CentralManager.showMetadataForKerno
        text: qsTr("Quotes")
        onClicked: CentralManager.showMetadataForKerno = false
    }
}
