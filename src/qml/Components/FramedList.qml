import QtQuick 2.15
import QtQuick.Controls 1.4
import "."

// A list in a frame, with what to read while it is empty. The arrows go through its rows.
FieldFrame {
    id: root

    property alias model: _list.model
    property alias delegate: _list.delegate
    property alias currentIndex: _list.currentIndex
    readonly property alias currentItem: _list.currentItem
    readonly property alias count: _list.count
    readonly property alias view: _list
    property string name
    property string emptyText

    // Return, and a key that isn't for the list itself.
    signal activated()
    signal keyPressed(var event)

    color: ApplicationStyle.list_background_color
    focused: _list.activeFocus

    PlainText {
        anchors { fill: parent; margins: ApplicationStyle.default_dialog_margin }
        visible: _list.count === 0
        text: root.emptyText
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        color: ApplicationStyle.dialog_text_color_alternative
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }

    StyledScrollView {
        anchors.fill: parent
        anchors.margins: 2

        ListView {
            id: _list
            activeFocusOnTab: true
            focus: true
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            Keys.onReturnPressed: root.activated()
            Keys.onEnterPressed: root.activated()
            Keys.onPressed: root.keyPressed(event)
            Accessible.role: Accessible.List
            Accessible.name: root.name
        }
    }
}
