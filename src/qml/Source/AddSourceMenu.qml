import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The ways to a new source.
StyledMenu {
    MenuItem {
        text: qsTr("New Blank Source")
        enabled: CentralManager.canMutate
        onTriggered: {
            var source = instantiator.source()
            source.icon = "md_generic"
            undoManager.addSource(source)
        }
    }
    MenuItem {
        text: qsTr("Import Source: Single File")
        visible: !CentralManager.singleQuestionMode
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showImportDialog = 1
    }
    MenuItem {
        text: qsTr("Import Source: Select File(s)")
        visible: CentralManager.singleQuestionMode
        enabled: CentralManager.canMutate
        onTriggered: appHelper.batchImportQuestions(false)
    }
    MenuItem {
        text: qsTr("Import Source: From Clipboard")
        enabled: CentralManager.canMutate && appHelper.clipboardContainsText
        onTriggered: CentralManager.showImportDialog = 2
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Import Sources From CSV")
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showCSVImportDialog = true
    }
    MenuSeparator {}
    MenuItem {
        text: qsTr("Import Sources: Entire Folder")
        enabled: CentralManager.canMutate && CentralManager.singleQuestionMode
        onTriggered: appHelper.batchImportQuestions(true)
    }
}
