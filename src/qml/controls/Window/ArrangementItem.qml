import QtQuick 2.15
import QtQuick.Controls 1.4
import Kernova 1.4
import "../../Components"

// One arrangement of the canvas, ticked while it is in force.
MenuItem {
    property bool autoArrange: true
    property int orderField: KernoProxyModel.NoSort
    readonly property bool __inForce: CentralManager.autoArrangeKernos === autoArrange
                                      && CentralManager.kernosOrderField === orderField

    checkable: true
    checked: __inForce
    enabled: !__inForce && !CentralManager.showingOverlapOrHierarchy
    onTriggered: {
        CentralManager.setKernoAutoArrangeMode(autoArrange, orderField)
        // The click has replaced the binding by a value.
        checked = Qt.binding(function() { return __inForce })
    }
}
