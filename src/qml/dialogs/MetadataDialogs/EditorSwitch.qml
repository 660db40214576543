import QtQuick 2.15
import "../../Components"

// A switch that shows what is stored, and asks for the other when it is clicked.
LabelledSwitch {
    id: root

    property bool stored: false

    signal toggled()

    width: implicitWidth
    enabled: CentralManager.canMutate
    checked: stored
    onClicked: {
        toggled()
        checked = Qt.binding(function() { return root.stored })
    }
}
