import QtQuick 2.15
import QtQuick.Dialogs 1.3
import "../Utils.js" as Utils

// Asks before a source is removed.
MessageDialog {
    property int sourceId: -1

    title: qsTr("Remove Source")
    icon: StandardIcon.Question
    standardButtons: StandardButton.Yes | StandardButton.No
    onYes: undoManager.deleteSource(sourceId)

    function ask(id, sourceTitle) {
        sourceId = id
        text = Utils.filled(qsTr("Do you really want to remove source entitled \"%1\" (id = %2)?"), sourceTitle, id)
        open()
    }
}
