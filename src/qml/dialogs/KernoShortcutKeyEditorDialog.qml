import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import Kernova 1.4
import "../Components"

// Which key codes a selected passage into which kerno.
DialogPanel {
    id: root

    heading: qsTr("Kerno Shortcut Key Editor")
    implicitWidth: Units.dp(520)

    Keys.onEscapePressed: dialogBase.close()

    KernoComboBoxModel {
        id: _kernos
        dummyEntryText: qsTr("-- Not Assigned --")
    }

    KernoShortcutKeyProxyModel { id: _keys }

    StyledScrollView {
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(400)

        ListView {
            model: _keys
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            delegate: ShortcutKeyRow {
                width: ListView.view.width - ApplicationStyle.default_margin
                shortcutKey: model.shortcutKey
                kernoId: model.kernoId
                kernos: _kernos
            }
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton {
            primary: true
            focus: true
            text: qsTr("OK")
            onClicked: root.dialogBase.close()
        }
    }
}
