import QtQuick 2.15
import "../../Components"
import "../../dialogs"
import "../../dialogs/ImportDialogs"
import "../../dialogs/MetadataDialogs"
import "../../dialogs/PromptDialogs"
import "../../dialogs/QuestionAnswer"

// The dialogs that may stand over one of MainDialogs: one row each, and the first that is wanted shows. In their order
// by flag: showImportDialog, showGroupEditor, showInlineMetadataKeyValueEditor, showAnswerEditor,
// showGeneralPreferencesDialog, promptDialogData, showMergeProjectsDialog, showEditQuestionsDialog,
// reportOutputFolder, wordCloudOutputFolder, showAboutDialog, showKernoShortcutKeyEditorDialog,
// showMergeDialogForKernoId, showCSVImportDialog, saveAsRemote, showExportQDPXDialog.
DialogChain {
    DialogEntry { flag: "showImportDialog"; rest: 0; Component { ImportSourceDialogImplementation {} } }
    DialogEntry { flag: "showGroupEditor"; Component { GroupEditorDialogImplementation {} } }
    DialogEntry {
        flag: "showInlineMetadataKeyValueEditor"; rest: 0
        Component { MetadataInlineKeyValueDialogImplementation {} }
    }
    DialogEntry { flag: "showAnswerEditor"; rest: null; Component { EditAnswerDialogImplementation {} } }
    DialogEntry { flag: "showGeneralPreferencesDialog"; Component { GeneralPreferencesDialogImplementation {} } }
    DialogEntry { flag: "promptDialogData"; rest: null; Component { PromptDialogImplementation {} } }
    DialogEntry { flag: "showMergeProjectsDialog"; Component { MergeProjectsDialogImplementation {} } }
    DialogEntry { flag: "showEditQuestionsDialog"; Component { EditQuestionsDialogImplementation {} } }
    DialogEntry { flag: "passageToCode"; rest: null; Component { CodeWithDialog {} } }
    DialogEntry { flag: "showKeyboardSheet"; Component { KeyboardSheet {} } }
    DialogEntry {
        wanted: CentralManager.reportOutputFolder !== ""
        onClosed: {
            appHelper.deleteFolder(CentralManager.reportOutputFolder)
            CentralManager.reportOutputFolder = ""
        }
        Component { ReportProgressDialogImplementation {} }
    }
    DialogEntry {
        wanted: CentralManager.wordCloudOutputFolder !== ""
        onClosed: {
            appHelper.deleteFolder(CentralManager.wordCloudOutputFolder)
            CentralManager.wordCloudOutputFolder = ""
        }
        Component { WordCloudProgressDialogImplementation {} }
    }
    DialogEntry { flag: "showAboutDialog"; Component { AboutDialogImplementation {} } }
    DialogEntry { flag: "showKernoShortcutKeyEditorDialog"; Component { KernoShortcutKeyEditorDialog {} } }
    DialogEntry { flag: "showMergeDialogForKernoId"; rest: -1; Component { MergeKernosDialog {} } }
    DialogEntry { flag: "showCSVImportDialog"; Component { ImportCSVDialogImplementation {} } }
    DialogEntry { flag: "saveAsRemote"; rest: 0; Component { NewProjectDialogImplementation {} } }
    DialogEntry { flag: "showExportQDPXDialog"; Component { ExportQDPXDialogImplementation {} } }
}
