import QtQuick 2.15
import "."
import "../Utils.js" as Utils

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
    // While the mouse stays where it has clicked, a note would only cover what came of it.
    property bool __used: false

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
        __used = hovered
        if (checkable)
            checked = !checked
        clicked()
    }

    onHoveredChanged: {
        __used = false
        CentralManager.onButtonHoverChanged(root)
    }
    Keys.onReturnPressed: click()
    Keys.onEnterPressed: click()
    Keys.onSpacePressed: click()
    Keys.onPressed: {
        event.accepted = hasMenu && Utils.asksForMenu(event)
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
        shown: root.hovered && !root.pressed && !root.__used
    }
}
