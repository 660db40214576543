import QtQuick 2.15
import "../Components"
import "../Utils.js" as Utils

// One key, and the kerno that it is bound to.
Item {
    id: root

    property string shortcutKey
    property int kernoId: -1
    property var kernos: null

    height: Units.dp(38)

    function showBinding() {
        _choice.currentIndex = kernos.findIndex(kernoId)
    }

    onKernoIdChanged: showBinding()
    Component.onCompleted: showBinding()

    Connections {
        target: root.kernos
        function onModelReset() { root.showBinding() }
    }

    MarkedText {
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        text: qsTr("Key\t<b>%1</b>:").arg(Utils.escaped(root.shortcutKey.toUpperCase()))
        color: ApplicationStyle.dialog_text_color
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }

    ArrowComboBox {
        id: _choice
        Accessible.name: qsTr("Kerno of key %1").arg(root.shortcutKey.toUpperCase())
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        width: parent.width - Units.dp(110)
        model: root.kernos
        textRole: "title"
        onActivated: undoManager.setKernoShortcut(root.shortcutKey, root.kernos.getKernoId(index))

        // Scrolling the list must not change a choice.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.NoButton
            onWheel: wheel.accepted = true
        }
    }
}
