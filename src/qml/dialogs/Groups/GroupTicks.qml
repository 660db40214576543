import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../../Components"

// The groups with ticks at those in which a kerno is, and the way to change the groups themselves.
ColumnLayout {
    id: root

    property int kernoId: -1
    property var initialGroups: []
    property var editedGroups: []

    spacing: ApplicationStyle.default_margin

    onKernoIdChanged: {
        initialGroups = krnFile.getAssociatedGroups(kernoId)
        editedGroups = initialGroups.slice()
    }

    function toggle(groupId) {
        var others = editedGroups.filter(function(id) { return id !== groupId })
        editedGroups = others.length < editedGroups.length ? others : others.concat([groupId])
    }

    function __missing(from, within) {
        return from.filter(function(id) { return within.indexOf(id) < 0 })
    }

    // Writes what has been ticked and unticked; with the kerno's own changes it makes one step.
    function save(record) {
        undoManager.beginMacro(qsTr("Update Kerno"))
        undoManager.updateKerno(record, editedGroups)
        __missing(editedGroups, initialGroups).forEach(function(id) { undoManager.addKernoGroup(kernoId, id) })
        __missing(initialGroups, editedGroups).forEach(function(id) { undoManager.deleteKernoGroup(kernoId, id) })
        undoManager.endMacro()
    }

    FramedList {
        id: _list
        objectName: "groupTicks"
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(122)
        model: krnFile.getGroupModel()
        name: qsTr("Groups of the kerno")
        emptyText: qsTr("No Groups - Click \"New/Change Group\" to add some.")
        onKeyPressed: {
            if (event.key === Qt.Key_Space && currentItem) {
                currentItem.clicked()
                event.accepted = true
            }
        }
        onActivated: if (currentItem) currentItem.clicked()

        delegate: GroupRow {
            id: _row
            readonly property bool ticked: root.editedGroups.indexOf(model.groupId) >= 0

            title: model.title
            kernos: model.associatedKernosCount
            selected: ListView.isCurrentItem && _list.focused
            leading: _tick
            enabled: CentralManager.canMutate
            Accessible.checkable: true
            Accessible.checked: ticked
            onClicked: root.toggle(model.groupId)

            Image {
                id: _tick
                anchors { left: parent.left; leftMargin: ApplicationStyle.default_margin }
                anchors.verticalCenter: parent.verticalCenter
                width: Units.dp(18)
                height: Units.dp(18)
                mipmap: true
                opacity: enabled ? 1.0 : 0.5
                source: "qrc:///qml/images/%1.png".arg(_row.ticked ? "tickbox-ticked" : "tickbox-empty")
            }
        }
    }

    StyledButton {
        objectName: "changeGroups"
        text: qsTr("New/Change Group")
        enabled: CentralManager.canMutate
        onClicked: CentralManager.showGroupEditor = true
    }
}
