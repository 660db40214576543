import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "../Utils.js" as Utils
import "Groups"

// The groups in which a kerno is.
DialogPanel {
    id: root

    property int kernoId: -1

    heading: qsTr("Groups of ")
    implicitWidth: Units.dp(560)

    Component.onCompleted: {
        kernoId = CentralManager.showGroupsDialogForKernoId
        headingTitle = Utils.stringIfEmpty(krnFile.kerno(kernoId).title, qsTr("Untitled"))
    }

    Keys.onEscapePressed: dialogBase.close()

    GroupTicks {
        id: _groups
        Layout.fillWidth: true
        kernoId: root.kernoId
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.dialogBase.close() }
        StyledButton {
            primary: true
            enabled: CentralManager.canMutate
            text: qsTr("Save")
            onClicked: {
                _groups.save(krnFile.kerno(root.kernoId))
                root.dialogBase.close()
            }
        }
    }
}
