import QtQuick 2.15
import QtQuick.Controls 1.4
import "."

// A switch with what it is for beside it.
Item {
    id: root

    property string text
    property alias checked: _switch.checked

    signal clicked()

    implicitWidth: _switch.width + Units.dp(8) + _label.implicitWidth
    implicitHeight: Math.max(_switch.height, _label.height)
    Accessible.role: Accessible.CheckBox
    Accessible.name: text

    Switch {
        id: _switch
        Accessible.name: root.text
        anchors.verticalCenter: parent.verticalCenter
        style: ApplicationStyle.switch_style
        activeFocusOnTab: true
        onClicked: root.clicked()
    }
    DialogLabel {
        id: _label
        anchors { left: _switch.right; leftMargin: Units.dp(8); right: parent.right; verticalCenter: parent.verticalCenter }
        text: root.text
        wrapMode: Text.WordWrap
        font.pixelSize: ApplicationStyle.label_font_size
    }
    MouseArea {
        anchors.fill: _label
        onClicked: {
            _switch.checked = !_switch.checked
            root.clicked()
        }
    }
}
