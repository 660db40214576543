import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// The steps of a merge.
RowLayout {
    id: root

    property bool finishing: false
    property bool ready: false

    signal cancelled()
    signal stepRequested()
    signal mergeRequested()

    spacing: ApplicationStyle.default_margin

    StyledButton {
        text: qsTr("Cancel")
        onClicked: root.cancelled()
    }
    Item { Layout.fillWidth: true }
    StyledButton {
        visible: root.finishing
        text: qsTr("Back")
        onClicked: root.stepRequested()
    }
    StyledButton {
        primary: true
        enabled: root.ready
        text: root.finishing ? qsTr("Merge") : qsTr("Next")
        onClicked: root.finishing ? root.mergeRequested() : root.stepRequested()
    }
}
