import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The head of the properties: it closes them, changes the source's icon, and opens the overview.
Item {
    id: root

    property string sourceIcon: "md_generic"

    implicitHeight: Units.dp(36)

    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: Units.dp(8)

        IconButton {
            objectName: "closeProperties"
            anchors.verticalCenter: parent.verticalCenter
            icon: "close"
            tooltip: qsTr("Close Properties")
            onClicked: CentralManager.showMetadataPanel = false
        }
        IconButton {
            objectName: "sourceIcon"
            anchors.verticalCenter: parent.verticalCenter
            icon: root.sourceIcon
            themed: false
            iconSize: Units.dp(26)
            enabled: CentralManager.currentSourceId > 0
            name: qsTr("Icon of the source")
            onClicked: _icons.popup()
        }
    }

    DialogLabel {
        anchors { left: parent.left; leftMargin: Units.dp(64); right: _overview.left; rightMargin: Units.dp(8) }
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Source Properties")
        font.pixelSize: Units.dp(25)
    }

    IconButton {
        id: _overview
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        objectName: "propertiesOverview"
        icon: "overview"
        tooltip: qsTr("Properties Overview")
        onClicked: CentralManager.showMetadataOverviewPanel = true
    }

    StyledMenu {
        id: _icons

        MetadataIconItem { icon: "md_generic"; text: qsTr("Generic"); current: root.sourceIcon }
        MetadataIconItem { icon: "md_male"; text: qsTr("Male"); current: root.sourceIcon }
        MetadataIconItem { icon: "md_female"; text: qsTr("Female"); current: root.sourceIcon }
    }
}
