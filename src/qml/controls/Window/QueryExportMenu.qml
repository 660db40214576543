import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// What can be made of the queries.
StyledMenu {
    id: root

    signal reportRequested(bool leftQuery)

    MenuItem {
        text: qsTr("Left Query Report")
        onTriggered: root.reportRequested(true)
    }
    MenuItem {
        text: qsTr("Right Query Report")
        enabled: CentralManager.twoPaneQuery
        onTriggered: root.reportRequested(false)
    }
}
