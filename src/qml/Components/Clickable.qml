import QtQuick 2.15
import "."

// What can be clicked: by the mouse, or by Return and Space while it has the keyboard. A right click or the menu key
// asks for its menu, where it has one.
Item {
    id: root

    property string text
    property string tooltip
    // What it is called where it can't be seen.
    property string name: tooltip || text
    property bool checkable: false
    property bool checked: false
    property bool hasMenu: false
    property alias ring: _ring
    readonly property bool hovered: _mouse.containsMouse
    readonly property bool pressed: _mouse.pressed

    signal clicked()
    signal menuRequested()

    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: true
    Accessible.checkable: checkable
    Accessible.checked: checked
    Accessible.onPressAction: click()

    function click() {
        if (checkable)
            checked = !checked
        clicked()
    }

    onHoveredChanged: CentralManager.onButtonHoverChanged(root)
    Keys.onReturnPressed: click()
    Keys.onEnterPressed: click()
    Keys.onSpacePressed: click()
    Keys.onPressed: {
        event.accepted = hasMenu && (event.key === Qt.Key_Menu
                                     || event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
        if (event.accepted)
            menuRequested()
    }

    FocusRing { id: _ring }

    MouseArea {
        id: _mouse
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: root.hasMenu ? Qt.LeftButton | Qt.RightButton : Qt.LeftButton
        onClicked: {
            if (mouse.button === Qt.RightButton)
                root.menuRequested()
            else
                root.click()
        }
    }

    HoverToolTip {
        anchorItem: root
        text: root.tooltip
        shown: root.hovered && !root.pressed
    }
}
