import QtQuick 2.15
import "../../Components"

// Leaves the open dialogs for the choice of where projects are.
IconButton {
    icon: "sign-out"
    tooltip: qsTr("Sign Out")
    onClicked: {
        krnFile.closeAndReset()
        CentralManager.showOpenFileDialog = false
        CentralManager.showCloudOpenFileDialog = false
        CentralManager.showLogin = true
    }
}
