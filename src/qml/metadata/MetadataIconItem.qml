import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// An icon that the current source can have.
MenuItem {
    property string icon
    property string current

    checkable: true
    checked: current === icon
    enabled: CentralManager.canMutate
    onTriggered: {
        undoManager.updateSourceIcon(CentralManager.currentSourceId, icon)
        // The click has ticked it; what is ticked is what is stored.
        checked = Qt.binding(function() { return current === icon })
    }
}
