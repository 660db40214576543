import QtQuick 2.15
import QtQml 2.15
import QtQuick.Controls 1.4
import "../../Components"

// The groups with ticks. While one is ticked, the kernos of ticked groups show alone.
StyledMenu {
    id: root

    property int numberOfChecked: 0
    readonly property bool allChecked: _groups.count > 0 && numberOfChecked === _groups.count

    // The filter is on before the first group shows its kernos, and goes with the last tick, however that went.
    function __tick(groupId, checked) {
        numberOfChecked += checked ? 1 : -1
        if (checked && numberOfChecked === 1)
            krnFile.applyGroupFilter(checked)
        krnFile.setGroupVisible(groupId, checked)
        if (numberOfChecked === 0)
            krnFile.applyGroupFilter(false)
    }

    MenuItem {
        text: qsTr("New/Change Group")
        enabled: CentralManager.canMutate
        onTriggered: CentralManager.showGroupEditor = true
    }
    MenuSeparator {}
    Instantiator {
        id: _groups
        model: krnFile.getGroupModel()
        onObjectAdded: root.insertItem(index + 2, object)
        onObjectRemoved: {
            root.removeItem(object)
            if (object.checked)
                root.__tick(object.groupId, false)
        }

        MenuItem {
            property int groupId: model.groupId

            text: model.title
            checkable: true
            onToggled: root.__tick(groupId, checked)
        }
    }
    MenuSeparator {}
    MenuItem {
        text: checked ? qsTr("Uncheck all") : qsTr("Check All")
        enabled: _groups.count > 0
        checkable: true
        checked: root.allChecked
        onTriggered: {
            var wanted = !root.allChecked
            for (var i = 0; i < _groups.count; ++i)
                _groups.objectAt(i).checked = wanted
            // The click has replaced the binding by a value.
            checked = Qt.binding(function() { return root.allChecked })
        }
    }
}
