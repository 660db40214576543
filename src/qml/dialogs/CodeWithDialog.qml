import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "../Utils.js" as Utils

// Codes the selected passage into a kerno that is found by its title, or into a new one.
DialogPanel {
    id: root

    property var passage: null
    property var kernos: []
    readonly property string __filter: _filter.text.trim().toLowerCase()
    readonly property var __found: kernos.filter(function(kerno) {
        return kerno.title.toLowerCase().indexOf(__filter) >= 0
    })

    heading: qsTr("Code with...")
    implicitWidth: Units.dp(520)

    Component.onCompleted: {
        passage = CentralManager.passageToCode
        kernos = Utils.sortBy(krnFile.kernos([]), function(kerno) { return kerno.title.toLowerCase() })
    }

    Keys.onEscapePressed: dialogBase.close()
    Keys.onPressed: {
        event.accepted = event.modifiers === Qt.ControlModifier && event.key === Qt.Key_N
        if (event.accepted)
            codeIntoNew()
    }

    function code() {
        var kerno = __found[_list.currentIndex]
        if (!kerno)
            return
        var highlight = Utils.fillPassage(instantiator.highlight(), passage)
        highlight.kernoId = kerno.kernoId
        dialogBase.close()
        undoManager.addHighlight(highlight)
    }

    function codeIntoNew() {
        dialogBase.close()
        CentralManager.codeIntoNewKerno(passage, _filter.text.trim())
    }

    DialogTextField {
        id: _filter
        objectName: "codeWithFilter"
        Layout.fillWidth: true
        focus: true
        placeholderText: qsTr("Filter kernos...")
        Accessible.name: qsTr("Filter kernos")
        onAccepted: root.code()
        onTextChanged: _list.currentIndex = 0
        Keys.onUpPressed: _list.view.decrementCurrentIndex()
        Keys.onDownPressed: _list.view.incrementCurrentIndex()
        Keys.onPressed: {
            event.accepted = event.modifiers === Qt.ControlModifier && event.key === Qt.Key_N
            if (event.accepted)
                root.codeIntoNew()
        }
    }

    FramedList {
        id: _list
        objectName: "codeWithList"
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(300)
        focus: false
        model: root.__found
        name: qsTr("Kernos")
        emptyText: root.kernos.length > 0 ? qsTr("No kerno has this in its title. Ctrl+N makes a new one.")
                                          : qsTr("There are no kernos yet. Ctrl+N makes one.")
        onActivated: root.code()

        delegate: RowHighlight {
            width: ListView.view.width
            height: Units.dp(32)
            selected: ListView.isCurrentItem
            hovered: _mouse.containsMouse
            Accessible.role: Accessible.ListItem
            Accessible.name: _title.text
            Accessible.selected: selected

            MouseArea {
                id: _mouse
                anchors.fill: parent
                hoverEnabled: true
                onClicked: {
                    _list.currentIndex = index
                    root.code()
                }
            }
            Rectangle {
                id: _disc
                anchors { left: parent.left; leftMargin: ApplicationStyle.default_margin }
                anchors.verticalCenter: parent.verticalCenter
                width: Units.dp(18)
                height: width
                radius: width / 2
                color: modelData.color
                border { width: 1; color: Qt.darker(color, 2) }
            }
            PlainText {
                id: _title
                anchors { left: _disc.right; right: parent.right; verticalCenter: parent.verticalCenter }
                anchors { leftMargin: Units.dp(8); rightMargin: ApplicationStyle.default_margin }
                text: Utils.stringIfEmpty(modelData.title, qsTr("Untitled"))
                elide: Text.ElideRight
                color: ApplicationStyle.dialog_text_color_alternative
                font.pixelSize: ApplicationStyle.dialog_text_font_size
            }
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        StyledButton { text: qsTr("New Kerno (Ctrl+N)"); onClicked: root.codeIntoNew() }
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.dialogBase.close() }
        StyledButton {
            primary: true
            text: qsTr("Code")
            enabled: !!_list.currentItem
            onClicked: root.code()
        }
    }
}
