import QtQuick 2.15
import "../../Components"
import "../../dialogs"
import "../../dialogs/PromptDialogs"

// The dialogs on the way into a project, and those of single records.
DialogChain {
    asynchronous: true

    DialogEntry {
        wanted: CentralManager.showLogin
        onClosed: {
            CentralManager.showLogin = false
            CentralManager.raiseOpenDialog(true)
        }
        Component { LoginDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.showCloudOpenFileDialog && !CentralManager.switchingProject
        onClosed: CentralManager.showCloudOpenFileDialog = false
        Component { CloudOpenFileDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.showOpenFileDialog && !CentralManager.switchingProject
        onClosed: CentralManager.showOpenFileDialog = false
        Component { OpenFileDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.showPreferencesDialogForKerno > 0
        onClosed: CentralManager.showPreferencesDialogForKerno = -1
        Component { KernoPreferencesDialogImplementation {} }
    }
}
