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
        text: qsTr("Import Source: Select File(s)")
        visible: CentralManager.singleQuestionMode
        enabled: CentralManager.canMutate
        onTriggered: appHelper.batchImportQuestions(false)
    }
    MenuSeparator { visible: CentralManager.singleQuestionMode }
    MenuItem {
        text: qsTr("Import Sources: Entire Folder")
        visible: CentralManager.singleQuestionMode
        enabled: CentralManager.canMutate
        onTriggered: appHelper.batchImportQuestions(true)
    }
}
