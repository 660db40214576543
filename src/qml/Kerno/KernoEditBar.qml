import QtQuick 2.15
import QtQuick.Dialogs 1.3
import QtQuick.Layouts 1.15
import "../Components"

// Changes one kerno of the canvas beside it. Each change is a step of its own.
FocusScope {
    id: root

    property int kernoId: -1
    property color __color: "white"
    // As it was read: what is stored meanwhile replaces no other field that somebody is writing in.
    property var __stored: null
    readonly property bool __mayEdit: kernoId > 0 && CentralManager.canMutate

    implicitHeight: Units.dp(34)

    // The keyboard goes back to the canvas.
    signal left()

    Keys.onReturnPressed: left()
    Keys.onEnterPressed: left()
    Keys.onEscapePressed: {
        __stored = null
        __read()
        left()
    }

    function show(id) {
        __save()
        kernoId = id
        __stored = null
        __read()
    }

    function __read() {
        var kerno = kernoId > 0 ? krnFile.kerno(kernoId) : null
        if (!kerno || kerno.kernoId !== kernoId) {
            kernoId = -1
            return
        }
        __color = kerno.color
        if (!__stored || __stored.title !== kerno.title)
            _title.text = kerno.title
        if (!__stored || __stored.description !== kerno.description)
            _description.text = kerno.description
        __stored = { title: kerno.title, description: kerno.description }
    }

    function __save() {
        if (!__mayEdit)
            return
        var kerno = krnFile.kerno(kernoId)
        kerno.color = __color
        kerno.title = _title.text.trim()
        kerno.description = _description.text.trim()
        undoManager.updateKerno(kerno)
    }

    Connections {
        target: CentralManager
        function onNotifyKernoUpdated(kernoId) {
            if (kernoId === root.kernoId)
                root.__read()
        }
        function onHasFileOpenChanged() { root.kernoId = -1 }
    }

    Rectangle {
        anchors.fill: parent
        color: ApplicationStyle.bar_background_color
    }

    RowLayout {
        anchors { fill: parent; leftMargin: ApplicationStyle.default_margin; rightMargin: ApplicationStyle.default_margin }
        spacing: Units.dp(8)

        PlainText {
            Layout.fillWidth: true
            visible: root.kernoId < 1
            text: qsTr("Click a kerno to change it here.")
            elide: Text.ElideRight
            color: ApplicationStyle.default_text_color
            font.pixelSize: ApplicationStyle.label_font_size
        }
        Clickable {
            Layout.preferredWidth: Units.dp(22)
            Layout.preferredHeight: Units.dp(22)
            visible: root.kernoId > 0
            enabled: root.__mayEdit
            tooltip: qsTr("Colour")
            ring.radius: width / 2
            onClicked: _colorDialog.open()

            Rectangle {
                anchors.fill: parent
                radius: width / 2
                color: root.__color
                border { width: Units.dp(2); color: Qt.darker(root.__color, 2) }
            }
        }
        StyledTextField {
            id: _title
            objectName: "editBarTitle"
            Accessible.name: qsTr("Title")
            Layout.preferredWidth: Units.dp(160)
            implicitHeight: Units.dp(24)
            visible: root.kernoId > 0
            focus: true
            readOnly: !root.__mayEdit
            placeholderText: qsTr("Untitled")
            font.pixelSize: ApplicationStyle.label_font_size
            onEditingFinished: root.__save()
        }
        StyledTextField {
            id: _description
            Accessible.name: qsTr("Description")
            Layout.fillWidth: true
            implicitHeight: Units.dp(24)
            visible: root.kernoId > 0
            readOnly: !root.__mayEdit
            placeholderText: qsTr("Description")
            font.pixelSize: ApplicationStyle.label_font_size
            onEditingFinished: root.__save()
        }
        IconButton {
            objectName: "editBarGroups"
            visible: root.kernoId > 0
            icon: "action_groups"
            tooltip: qsTr("Groups of the Kerno")
            onClicked: CentralManager.showGroupsDialogForKernoId = root.kernoId
        }
        IconButton {
            icon: "close"
            iconSize: Units.dp(16)
            tooltip: qsTr("Close the Quick Edit Bar")
            onClicked: CentralManager.showKernoEditBar = false
        }
    }

    ColorDialog {
        id: _colorDialog
        title: qsTr("Kerno Colour")
        color: root.__color
        onAccepted: {
            root.__color = color
            root.__save()
        }
    }
}
