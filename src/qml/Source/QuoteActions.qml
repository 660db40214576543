import QtQuick 2.15
import "../Components"
import "../searchpanel"

// What can be done with all quotes at once. `panel` shows them.
Row {
    id: root

    property Item panel: null
    readonly property Item __quotes: panel ? panel.quotes : null
    readonly property bool __anySelected: !!__quotes && __quotes.itemsWithSelectedText.length > 0
    readonly property bool __allSelected: !!__quotes && __quotes.allSelected

    visible: panel !== null
    enabled: !!__quotes && __quotes.count > 0
    spacing: Units.dp(8)

    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        objectName: "copySelectedParts"
        icon: "copy"
        iconSize: Units.dp(18)
        enabled: root.__anySelected
        tooltip: qsTr("Copy Selected Parts")
        onClicked: root.panel.copySelectedParts()
    }
    SelectAllBox {
        anchors.verticalCenter: parent.verticalCenter
        objectName: "selectAllQuotes"
        allSelected: root.__allSelected
        tooltip: root.__allSelected ? qsTr("Deselect All") : qsTr("Select All")
        onToggled: {
            if (select)
                root.__quotes.selectAll()
            else
                root.__quotes.deselectAll()
        }
    }
}
