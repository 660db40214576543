import QtQuick 2.15
import "../../Components"
import "../../dialogs"
import "../../introslider"
import "../../dialogs/MetadataDialogs"
import "../../dialogs/PromptDialogs"

// The dialogs on the way into a project, and those of single records: one row each, and the first that is wanted
// shows. In their order by flag: showLogin, showCloudOpenFileDialog, showOpenFileDialog, showIntroSlider,
// showPreferencesDialogForKerno, showMetadataEditor, showGroupsDialogForKernoId.
DialogChain {
    id: root

    // Nobody has seen the introduction on this computer yet.
    property bool firstTime: false

    signal introductionSeen()

    asynchronous: true

    DialogEntry {
        flag: "showLogin"
        onClosed: CentralManager.raiseOpenDialog(true)
        Component { LoginDialogImplementation {} }
    }
    DialogEntry {
        flag: "showCloudOpenFileDialog"; held: CentralManager.switchingProject
        Component { CloudOpenFileDialogImplementation {} }
    }
    DialogEntry {
        flag: "showOpenFileDialog"; held: CentralManager.switchingProject
        Component { OpenFileDialogImplementation {} }
    }
    DialogEntry {
        flag: "showIntroSlider"
        wanted: CentralManager.showIntroSlider || root.firstTime && CentralManager.hasFileOpen
        onClosed: root.introductionSeen()
        Component { IntroSlider {} }
    }
    DialogEntry {
        flag: "showPreferencesDialogForKerno"; rest: -1
        Component { KernoPreferencesDialogImplementation {} }
    }
    DialogEntry { flag: "showMetadataEditor"; Component { MetadataEditorDialogImplementation {} } }
    DialogEntry {
        flag: "showGroupsDialogForKernoId"; rest: -1
        Component { GroupsKernoDialog {} }
    }
}
