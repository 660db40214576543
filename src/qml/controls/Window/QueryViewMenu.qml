import QtQuick 2.15
import QtQuick.Controls 1.4
import "../../Components"

// By which of two queries the kernos are ordered.
StyledMenu {
    readonly property alias sortByLeft: _byLeft.checked

    ExclusiveGroup { id: _side }

    MenuItem {
        id: _byLeft
        text: qsTr("Sort by Left Query")
        checkable: true
        checked: true
        exclusiveGroup: _side
    }
    MenuItem {
        text: qsTr("Sort by Right Query")
        checkable: true
        enabled: CentralManager.twoPaneQuery
        exclusiveGroup: _side
    }
}
