import QtQuick 2.15
import "../../Components"
import "../../dialogs"
import "../../dialogs/ImportDialogs"
import "../../dialogs/PromptDialogs"

// The dialogs that may stand over one of MainDialogs.
DialogChain {
    DialogEntry {
        wanted: CentralManager.showImportDialog > 0
        onClosed: CentralManager.showImportDialog = 0
        Component { ImportSourceDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.showGeneralPreferencesDialog
        onClosed: CentralManager.showGeneralPreferencesDialog = false
        Component { GeneralPreferencesDialogImplementation {} }
    }
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
        wanted: CentralManager.showKernoShortcutKeyEditorDialog
        onClosed: CentralManager.showKernoShortcutKeyEditorDialog = false
        Component { KernoShortcutKeyEditorDialog {} }
    }
    DialogEntry {
        wanted: CentralManager.showMergeDialogForKernoId > 0
        onClosed: CentralManager.showMergeDialogForKernoId = -1
        Component { MergeKernosDialog {} }
    }
    DialogEntry {
        wanted: CentralManager.saveAsRemote > 0
        onClosed: CentralManager.saveAsRemote = 0
        Component { NewProjectDialogImplementation {} }
    }
}
