import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "Groups"

// Makes, renames and deletes groups.
DialogPanel {
    id: root

    property int currentGroupId: -1
    readonly property string __name: _name.text.trim()

    heading: qsTr("Edit Groups")
    implicitWidth: Units.dp(620)

    Component.onCompleted: _undo.start()
    Keys.onEscapePressed: dialogBase.close()
    Keys.onPressed: {
        if (event.matches(StandardKey.Undo))
            _undo.undo()
        else if (event.matches(StandardKey.Redo) || event.key === Qt.Key_Y && event.modifiers === Qt.ControlModifier)
            _undo.redo()
        else
            return
        event.accepted = true
    }

    function add() {
        if (__name === "")
            return
        undoManager.addGroup(-1, __name)
        _name.text = ""
        _name.forceActiveFocus()
    }

    function rename() {
        if (__name !== "" && currentGroupId > 0)
            undoManager.addGroup(currentGroupId, __name)
    }

    UndoLimit { id: _undo }

    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Name:") }
        DialogTextField {
            id: _name
            objectName: "groupName"
            Layout.fillWidth: true
            focus: true
            Accessible.name: qsTr("Name")
            onAccepted: root.add()
        }
        StyledButton {
            text: qsTr("New Group")
            primary: true
            enabled: CentralManager.canMutate && root.__name !== ""
            onClicked: root.add()
        }
    }

    FramedList {
        id: _list
        objectName: "groups"
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(240)
        focus: false
        model: krnFile.getGroupModel()
        name: qsTr("Groups")
        emptyText: qsTr("No Groups to Display in the List")
        onCurrentItemChanged: root.currentGroupId = currentItem ? currentItem.groupId : -1
        onActivated: if (currentItem) currentItem.clicked()
        onKeyPressed: {
            if (event.key === Qt.Key_Delete && currentItem && CentralManager.canMutate) {
                undoManager.deleteGroup(root.currentGroupId)
                event.accepted = true
            }
        }

        delegate: GroupRow {
            readonly property int groupId: model.groupId

            title: model.title
            kernos: model.associatedKernosCount
            selected: ListView.isCurrentItem
            trailing: _delete
            Accessible.selected: selected
            onClicked: _name.text = model.title

            IconButton {
                id: _delete
                anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
                anchors.verticalCenter: parent.verticalCenter
                icon: "delete"
                iconSize: Units.dp(18)
                enabled: CentralManager.canMutate
                tooltip: qsTr("Delete")
                onClicked: undoManager.deleteGroup(model.groupId)
            }
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        StyledButton { text: qsTr("Undo"); enabled: _undo.canUndo; onClicked: _undo.undo() }
        StyledButton { text: qsTr("Redo"); enabled: _undo.canRedo; onClicked: _undo.redo() }
        Item { Layout.fillWidth: true }
        StyledButton {
            text: qsTr("Rename")
            enabled: CentralManager.canMutate && root.currentGroupId > 0 && root.__name !== ""
                     && _list.currentItem && _list.currentItem.title !== root.__name
            onClicked: root.rename()
        }
        StyledButton { text: qsTr("Close"); onClicked: root.dialogBase.close() }
    }
}
