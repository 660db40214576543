import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The stripes of the coded passages beside a text.
Item {
    id: root

    property alias model: _stripes.model
    property int columns: 1
    property bool interactive: true
    readonly property real columnWidth: width / Math.max(1, columns)
    readonly property int hoveredHighlight: _mouse.stripe ? _mouse.stripe.highlightId : -1
    readonly property alias count: _stripes.count

    onHoveredHighlightChanged: CentralManager.notifyHighlightHovered(hoveredHighlight)

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
            highlightId: root.hoveredHighlight
            title: _mouse.stripe ? _mouse.stripe.title : ""
            x: _mouse.mouseX + Units.dp(40)
            y: _mouse.mouseY - height + Units.dp(20)
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

        MenuItem {
            text: qsTr("Remove Highlight")
            enabled: CentralManager.canMutate
            onTriggered: undoManager.deleteHighlight(_menu.highlightId)
        }
    }
}
