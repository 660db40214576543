import QtQuick 2.15
import "../../Components"
import "../../dialogs"

// The dialogs that may stand over one of MainDialogs.
DialogChain {
    DialogEntry {
        wanted: CentralManager.promptDialogData !== null
        onClosed: CentralManager.promptDialogData = null
        Component { PromptDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.showAboutDialog
        onClosed: CentralManager.showAboutDialog = false
        Component { AboutDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.showGeneralPreferencesDialog
        onClosed: CentralManager.showGeneralPreferencesDialog = false
        Component { GeneralPreferencesDialogImplementation {} }
    }
}
