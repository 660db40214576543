import QtQuick 2.15
import "../Components"

// What the right column shows of a view of kernos, in the place of the sources' tabs.
Rectangle {
    id: root

    readonly property real __tabWidth: Math.min(Units.dp(180), (width - Units.dp(20)) / 2)

    height: Units.dp(30)
    color: ApplicationStyle.bar_background_color

    Row {
        anchors { left: parent.left; leftMargin: Units.dp(8); top: parent.top; topMargin: Units.dp(3) }
        anchors.bottom: parent.bottom
        spacing: Units.dp(4)

        TabShape {
            width: root.__tabWidth
            height: parent.height
            selected: !CentralManager.showMetadataForKerno
            text: qsTr("Quotes")
            onClicked: CentralManager.showMetadataForKerno = false
        }
        TabShape {
            objectName: "kernoPropertiesTab"
            width: root.__tabWidth
            height: parent.height
            // The figures are those of the hierarchy's kernos.
            visible: CentralManager.showHierarchyViewForKerno > 0
            selected: CentralManager.showMetadataForKerno
            text: qsTr("Properties")
            onClicked: CentralManager.showMetadataForKerno = true
        }
    }
}
