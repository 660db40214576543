import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// The recent projects, and the button that opens the chosen one.
ColumnLayout {
    id: root

    property alias model: _list.model
    readonly property alias selectedPath: _list.selectedPath

    signal activated(string path)
    signal removeRequested(string path)

    spacing: ApplicationStyle.default_margin

    DialogLabel { text: qsTr("Recent Projects:") }
    RecentFilesList {
        id: _list
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(236)
        onActivated: root.activated(path)
        onRemoveRequested: root.removeRequested(path)
    }
    StyledButton {
        Layout.alignment: Qt.AlignRight
        primary: true
        enabled: root.selectedPath !== ""
        text: qsTr("Open Selected")
        onClicked: root.activated(root.selectedPath)
    }
}
