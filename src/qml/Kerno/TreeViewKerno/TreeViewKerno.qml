import QtQuick 2.15
import "../../Components"
import "../../Utils.js" as Utils

// A kerno as a label, which can be dragged onto another to become its child. A passage dropped on it is coded.
MouseArea {
    id: root

    property var dataSource: null
    // What the labels of a tree share: its menu, its note, its layer for what is dragged.
    property Item tree: null
    readonly property int kernoId: dataSource && dataSource.kernoId !== undefined ? dataSource.kernoId : 0
    readonly property string title: dataSource && dataSource.title ? dataSource.title : ""
    readonly property string description: dataSource && dataSource.description ? dataSource.description : ""
    readonly property int numberOfCodings: dataSource && dataSource.highlightsCount ? dataSource.highlightsCount : 0
    readonly property int countWithChildren: dataSource && dataSource.highlightsCountWithChildren
                                             ? dataSource.highlightsCountWithChildren : 0
    readonly property string codingText: countWithChildren === numberOfCodings
                                         ? "%1".arg(numberOfCodings)
                                         : "%1 (%2)".arg(numberOfCodings).arg(countWithChildren)
    readonly property bool isTreeLabel: true
    readonly property bool dragging: drag.active
    property bool showContextMenu: false

    height: _label.height
    hoverEnabled: true
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    preventStealing: true
    drag.target: _label
    drag.smoothed: false

    Accessible.role: Accessible.TreeItem
    Accessible.name: title || qsTr("(untitled)")
    Accessible.description: description
    Accessible.focusable: true
    Accessible.focused: activeFocus

    onContainsMouseChanged: tree.labelHovered(root, containsMouse)
    onPositionChanged: tree.mouseMoved(root, mouse)
    onActiveFocusChanged: {
        if (activeFocus)
            tree.labelFocused(root)
    }
    onPressed: {
        forceActiveFocus()
        _label.Drag.hotSpot = Qt.point(mouse.x, mouse.y)
        drag.target = mouse.button === Qt.LeftButton ? _label : null
    }
    onDraggingChanged: {
        if (!dragging)
            return
        var place = root.mapToItem(tree.dragLayer, _label.x, _label.y)
        _label.parent = tree.dragLayer
        _label.x = place.x
        _label.y = place.y
    }
    onReleased: {
        if (dragging)
            _label.Drag.drop()
        __putBack()
    }
    onCanceled: __putBack()
    onPressAndHold: {
        if (!dragging)
            tree.showMenu(root)
    }
    onClicked: {
        if (mouse.button === Qt.RightButton)
            tree.showMenu(root)
    }
    onDoubleClicked: {
        if (mouse.button === Qt.LeftButton)
            CentralManager.showHierarchyViewForKerno = kernoId
    }

    function __putBack() {
        _label.parent = root
        _label.x = 0
        _label.y = 0
    }

    DropArea {
        id: _drop

        readonly property bool containsKernoDrag: containsDrag && __has("kerno")
                                                  && krnFile.canReparent(drag.source.kernoId, root.kernoId)
        readonly property bool containsTextDrag: containsDrag && __has("text")

        function __has(key) {
            return !!drag.source && drag.source.Drag.keys.indexOf(key) >= 0
        }

        anchors.fill: parent
        keys: ["kerno", "text"]
        enabled: !root.dragging
        onDropped: {
            if (containsKernoDrag) {
                root.tree.nest(drop.source.kernoId, root.kernoId)
            } else if (containsTextDrag) {
                var highlight = Utils.fillPassage(instantiator.highlight(), drop.source)
                highlight.kernoId = root.kernoId
                undoManager.addHighlight(highlight)
            }
        }
    }

    Rectangle {
        id: _label

        readonly property int kernoId: root.kernoId
        readonly property color __textColor: appHelper.contrastFontColor(color)

        width: root.width
        height: _texts.height + 2 * __margin
        radius: 2
        color: _drop.containsKernoDrag || _drop.containsTextDrag ? "grey"
             : root.dataSource && root.dataSource.color !== undefined ? root.dataSource.color : "white"
        opacity: root.dragging || root.tree.takenKerno === root.kernoId ? 0.7 : 1

        readonly property real __margin: ApplicationStyle.default_margin * 0.2

        Drag.active: root.dragging
        Drag.keys: ["kerno"]

        Column {
            id: _texts
            anchors { left: parent.left; right: parent.right; top: parent.top }
            anchors { leftMargin: Units.dp(10); rightMargin: parent.__margin; topMargin: parent.__margin }

            PlainText {
                width: parent.width
                text: Utils.filled("%2 | %1", root.title || qsTr("(untitled)"), root.codingText)
                elide: Text.ElideRight
                color: _label.__textColor
                font.pixelSize: ApplicationStyle.dialog_text_font_size * 0.9
            }
            PlainText {
                width: parent.width
                text: (root.description || qsTr("(no description)")).replace(/\s+/g, " ")
                elide: Text.ElideRight
                color: _label.__textColor
                font.pixelSize: ApplicationStyle.dialog_text_font_size * 0.6
            }
        }

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: "transparent"
            visible: root.activeFocus
            border { width: Units.dp(2); color: _label.__textColor }
        }
    }
}
