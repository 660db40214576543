import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"
import "../Utils.js" as Utils

// The stripes of the coded passages beside a text. They are one stop for Tab; the arrows go from stripe to stripe.
Item {
    id: root

    property alias model: _stripes.model
    property int columns: 1
    property bool interactive: true
    readonly property real columnWidth: width / Math.max(1, columns)
    readonly property Item __shown: _mouse.stripe || _keys.current
    readonly property int hoveredHighlight: __shown ? __shown.highlightId : -1
    readonly property alias count: _stripes.count

    // The keys are at a stripe of that place.
    signal reached(real y, real height)
    // The keyboard goes back to the text.
    signal left()

    activeFocusOnTab: interactive && _keys.shownCount > 0 || activeFocus
    Accessible.role: Accessible.List
    Accessible.name: _keys.current ? Utils.filled(qsTr("Coded: %1"), _keys.current.title || qsTr("Untitled"))
                                   : qsTr("Codings")
    Accessible.focusable: true
    Accessible.focused: activeFocus

    // The menu of the first coding that covers the height.
    function showMenuBeside(y) {
        for (var i = 0; i < count; ++i) {
            var stripe = _stripes.itemAt(i)
            if (stripe && stripe.highlightId > 0 && stripe.y <= y && y <= stripe.y + stripe.height)
                return _menu.showFor(stripe)
        }
    }

    onHoveredHighlightChanged: CentralManager.notifyHighlightHovered(hoveredHighlight)
    Keys.onPressed: _keys.handle(event)

    BarKeys {
        id: _keys
        bar: root
        repeater: _stripes
        idField: "highlightId"
        onReached: root.reached(item.y, Math.min(item.height, Units.dp(40)))
        onRemoved: undoManager.deleteHighlight(item.highlightId)
        onMenuRequested: _menu.showFor(item)
        onLeft: root.left()
    }

    // Comes before the stripes, so that childAt finds them and not this ring.
    Rectangle {
        readonly property Item at: _keys.current

        visible: !!at
        x: at ? at.x - 2 : 0
        y: at ? at.y - 2 : 0
        z: 3
        width: at ? at.width + 4 : 0
        height: at ? at.height + 4 : 0
        radius: 2
        color: "transparent"
        border { width: 3; color: ApplicationStyle.focus_color }
    }

    // Comes before the stripes, so that childAt finds them and not this area.
    MouseArea {
        id: _mouse

        property Item stripe: null

        function stripeAt(x, y) {
            var item = root.childAt(x, y)
            return item && item.highlightId !== undefined ? item : null
        }

        function showMenu(mouse) {
            var item = stripeAt(mouse.x, mouse.y)
            if (!item)
                return
            _menu.highlightId = item.highlightId
            _menu.popup()
        }

        anchors.fill: parent
        z: 3
        hoverEnabled: root.count > 0
        enabled: root.interactive
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPositionChanged: stripe = stripeAt(mouse.x, mouse.y)
        onExited: stripe = null
        onPressAndHold: showMenu(mouse)
        onClicked: {
            if (mouse.button === Qt.RightButton)
                showMenu(mouse)
        }

        HighlightToolTip {
            readonly property Item at: _mouse.stripe ? null : _keys.current

            highlightId: root.hoveredHighlight
            title: root.__shown ? root.__shown.title : ""
            x: at ? root.width + Units.dp(8) : _mouse.mouseX + Units.dp(40)
            y: !at ? _mouse.mouseY - height + Units.dp(20)
             : at.y >= height ? at.y - height : at.y + at.height
        }
    }

    Repeater {
        id: _stripes

        Rectangle {
            // The model may announce rows before it has them; such a row has no values.
            readonly property int highlightId: model.highlightId || -1
            readonly property string title: model.title || ""

            visible: highlightId > 0
            x: (model.column || 0) * root.columnWidth
            y: model.y1 || 0
            z: 2
            width: root.columnWidth
            height: (model.y2 || 0) - y
            color: model.color !== undefined ? model.color : "white"
            border { width: 1; color: Qt.darker(color, 1.3) }
        }
    }

    StyledMenu {
        id: _menu

        property int highlightId: -1

        function showFor(stripe) {
            highlightId = stripe.highlightId
            popupAt(stripe, stripe.width, Math.min(stripe.height, Units.dp(20)))
        }

        MenuItem {
            text: qsTr("Remove Highlight")
            enabled: CentralManager.canMutate
            onTriggered: undoManager.deleteHighlight(_menu.highlightId)
        }
    }
}
