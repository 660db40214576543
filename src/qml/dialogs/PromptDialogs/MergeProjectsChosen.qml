import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// Which projects are merged: the master, and those that come into it.
ColumnLayout {
    id: root

    property var master: null
    property alias projects: _list.projects
    property alias nameOf: _list.nameOf

    signal masterRequested()
    signal addRequested()
    signal removeRequested(var project)

    spacing: ApplicationStyle.default_margin

    function takeFocus() { _add.forceActiveFocus() }

    DialogLabel {
        Layout.fillWidth: true
        text: qsTr("The projects come together in a new one and stay as they are themselves. Sources of one title and text, kernos, groups and properties of one name become one.")
        wrapMode: Text.WordWrap
        color: ApplicationStyle.dialog_text_color_alternative
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }
    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Master project:") }
        DialogLabel {
            objectName: "masterProject"
            Layout.fillWidth: true
            text: root.master ? root.nameOf(root.master) : ""
            elide: Text.ElideMiddle
            color: ApplicationStyle.dialog_text_color_alternative
        }
        StyledButton {
            text: root.master ? qsTr("Change Master Project") : qsTr("Set Master Project")
            onClicked: root.masterRequested()
        }
    }
    RowLayout {
        spacing: ApplicationStyle.default_margin

        DialogLabel {
            Layout.fillWidth: true
            text: qsTr("Projects to merge:")
        }
        StyledButton {
            id: _add
            focus: true
            text: qsTr("Add Project")
            onClicked: root.addRequested()
        }
    }
    MergeProjectsList {
        id: _list
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(180)
        onRemoveRequested: root.removeRequested(project)
    }
}
