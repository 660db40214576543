import QtQuick 2.15
import "../Components"

// Finds a text in the answers that are shown.
Rectangle {
    id: root

    // Gives the answer items in their order.
    property var answerItems: function() { return [] }
    property var __places: []
    property int __current: -1

    signal placeShown(Item item, real y, real lineHeight)
    signal closed()

    visible: false
    height: visible ? Units.dp(42) : 0
    color: ApplicationStyle.selected_tab_alternative

    function open() {
        visible = true
        var items = answerItems()
        for (var i = 0; i < items.length; ++i) {
            var selected = items[i].selectedText
            if (selected !== "" && selected.length < 100 && !/[\u2028\u2029\n]/.test(selected))
                _term.text = selected
        }
        _term.forceActiveFocus()
        _term.selectAll()
        search()
    }

    function close() {
        visible = false
        __places = []
        __current = -1
        closed()
    }

    // Looks anew, and stays at the place that is shown where that still is one.
    function search() {
        if (!visible)
            return
        var places = []
        var items = answerItems()
        var now = __current >= 0 ? __places[__current] : null
        var current = -1
        for (var i = 0; i < items.length; ++i) {
            var starts = items[i].mainTextArea.positionsOf(_term.text)
            for (var j = 0; j < starts.length; ++j) {
                if (current < 0 && now && (i > now.index || i === now.index && starts[j] >= now.start))
                    current = places.length
                places.push({ item: items[i], index: i, start: starts[j] })
            }
        }
        __places = places
        __go(places.length === 0 ? -1 : Math.max(0, current))
    }

    function step(by) {
        if (__places.length > 0)
            __go((__current + by + __places.length) % __places.length)
    }

    function __go(index) {
        var before = __places[__current]
        __current = index
        var place = __places[index]
        if (before && before.item && (!place || before.item !== place.item))
            before.item.deselect()
        if (!place)
            return
        var text = place.item.mainTextArea
        text.select(place.start, place.start + _term.text.length)
        var at = text.positionToRectangle(place.start)
        placeShown(place.item, at.y, at.height)
    }

    Keys.onEscapePressed: close()
    Keys.onDownPressed: step(1)
    Keys.onUpPressed: step(-1)
    Keys.onReturnPressed: step(event.modifiers & Qt.ShiftModifier ? -1 : 1)
    Keys.onEnterPressed: step(event.modifiers & Qt.ShiftModifier ? -1 : 1)

    MouseArea { anchors.fill: parent }

    StyledTextField {
        id: _term
        objectName: "findTerm"
        anchors { left: parent.left; leftMargin: Units.dp(8); right: _count.left; rightMargin: Units.dp(8) }
        anchors.verticalCenter: parent.verticalCenter
        placeholderText: qsTr("Find in text")
        onTextChanged: _searchTimer.restart()
    }

    PlainText {
        id: _count
        anchors { right: _previous.left; rightMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
        objectName: "findCount"
        width: Units.dp(78)
        horizontalAlignment: Text.AlignRight
        text: _term.text === "" ? "" : root.__places.length === 0 ? qsTr("Not found")
            : qsTr("%1 of %2").arg(root.__current + 1).arg(root.__places.length)
        color: ApplicationStyle.dialog_text_color_alternative
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }

    IconButton {
        id: _previous
        anchors { right: _next.left; rightMargin: Units.dp(4); verticalCenter: parent.verticalCenter }
        enabled: root.__places.length > 0
        icon: "arrow-up"
        tooltip: qsTr("Previous")
        onClicked: root.step(-1)
    }
    IconButton {
        id: _next
        anchors { right: _close.left; rightMargin: Units.dp(4); verticalCenter: parent.verticalCenter }
        enabled: root.__places.length > 0
        icon: "arrow-down"
        tooltip: qsTr("Next")
        onClicked: root.step(1)
    }
    IconButton {
        id: _close
        anchors { right: parent.right; rightMargin: Units.dp(6); verticalCenter: parent.verticalCenter }
        icon: "close"
        iconSize: Units.dp(18)
        tooltip: qsTr("Close")
        onClicked: root.close()
    }

    Timer {
        id: _searchTimer
        interval: 150
        onTriggered: root.search()
    }
}
