import QtQuick 2.15
import QtQuick.Controls 1.4
import Kernova 1.4
import "../../Components"

// How the canvas arranges its kernos, and what it shows on them.
StyledMenu {
    ArrangementItem {
        text: qsTr("Default (No Auto Arrange)")
        autoArrange: false
    }
    MenuSeparator {}
    ArrangementItem {
        text: qsTr("Auto Arrange - Manual Order")
        visible: !CentralManager.showAsTreeView
    }
    MenuSeparator {}
    ArrangementItem {
        text: qsTr("Arrange by Title - Ascending")
        orderField: KernoProxyModel.ByTitleAscending
    }
    ArrangementItem {
        text: qsTr("Arrange by Title - Descending")
        orderField: KernoProxyModel.ByTitleDescending
    }
    ArrangementItem {
        text: qsTr("Arrange by Last Created - Ascending")
        orderField: KernoProxyModel.ByTimestampAscending
    }
    ArrangementItem {
        text: qsTr("Arrange by Last Created - Descending")
        orderField: KernoProxyModel.ByTimestampDescending
    }
    ArrangementItem {
        text: qsTr("Arrange by Number of Quotes - Ascending")
        orderField: KernoProxyModel.ByNumberOfHighlightsAscending
    }
    ArrangementItem {
        text: qsTr("Arrange by Number of Quotes - Descending")
        orderField: KernoProxyModel.ByNumberOfHighlightsDescending
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Kernos as Tree View")
        checkable: true
        checked: CentralManager.showAsTreeView
        enabled: !CentralManager.showingOverlapOrHierarchy
        onTriggered: {
            CentralManager.showAsTreeView = !CentralManager.showAsTreeView
            checked = Qt.binding(function() { return CentralManager.showAsTreeView })
        }
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Show Number of Codings")
        checkable: true
        checked: CentralManager.showNumberOfCodingsInKernos
        enabled: !CentralManager.showAsTreeView
        onTriggered: {
            CentralManager.showNumberOfCodingsInKernos = !CentralManager.showNumberOfCodingsInKernos
            checked = Qt.binding(function() { return CentralManager.showNumberOfCodingsInKernos })
        }
    }
    MenuItem {
        text: qsTr("Quick Edit Bar")
        checkable: true
        checked: CentralManager.showKernoEditBar
        enabled: !CentralManager.showAsTreeView && !CentralManager.showingOverlapOrHierarchy
        onTriggered: {
            CentralManager.showKernoEditBar = !CentralManager.showKernoEditBar
            checked = Qt.binding(function() { return CentralManager.showKernoEditBar })
        }
    }
}
