import QtQuick 2.15
import "../../Components"
import "../CircleKerno"
import "../Models"
import "../../Utils.js" as Utils
import "TreeGeometry.js" as Geometry

// All kernos as labels, the children below their parents, in as many columns as they take.
FocusScope {
    id: root

    readonly property alias dragLayer: _drags
    property int __focusedKerno: 0
    // The kerno that Ctrl+X has taken up.
    property int takenKerno: 0
    property Item __hovered: null
    readonly property real __margin: Units.dp(20)
    readonly property real __bar: ApplicationStyle.scroll_bar_size
    readonly property real __labelWidth: 220

    // One stop for Tab: inside, the arrows go on.
    activeFocusOnTab: true
    Accessible.role: Accessible.Tree
    Accessible.name: qsTr("Kernos")

    function showMenu(label) {
        _menu.show(label)
    }

    function labelHovered(label, hovered) {
        if (hovered)
            __hovered = label
        else if (__hovered === label)
            __hovered = null
    }

    function mouseMoved(label, mouse) {
        _note.mouse = label.mapToItem(root, mouse.x, mouse.y)
    }

    function labelFocused(label) {
        __focusedKerno = label.kernoId
        var place = label.mapToItem(_flow, 0, 0)
        _view.contentX = __scrolledTo(place.x, label.width, _view.contentX, _view.width, _view.contentWidth)
        _view.contentY = __scrolledTo(place.y, label.height, _view.contentY, _view.height, _view.contentHeight)
    }

    function __paste(parentKernoId) {
        if (krnFile.canReparent(takenKerno, parentKernoId))
            nest(takenKerno, parentKernoId)
        else if (takenKerno > 0)
            CentralManager.tell(qsTr("The kerno can't go there: kernos nest in three levels only."))
        takenKerno = 0
    }

    // A drop is still under way in both labels, and the change takes at least one of them away.
    function nest(kernoId, parentKernoId) {
        Qt.callLater(__nest, kernoId, parentKernoId)
    }

    function __nest(kernoId, parentKernoId) {
        var kerno = krnFile.kerno(kernoId)
        kerno.parentKernoId = parentKernoId
        undoManager.updateKerno(kerno)
    }

    function __scrolledTo(position, length, scrolled, viewLength, contentLength) {
        var least = Math.min(scrolled, position)
        return Math.max(0, Math.min(Math.max(least, position + length + 2 * __margin - viewLength),
                                    Math.max(0, contentLength - viewLength)))
    }

    // All labels that are seen, in the order in which they are read.
    function __labels(item, found) {
        for (var i = 0; i < item.visibleChildren.length; ++i) {
            var child = item.visibleChildren[i]
            if (child.isTreeLabel)
                found.push(child)
            else
                __labels(child, found)
        }
        return found
    }

    // Labels are made anew when they are nested, and those before them lose the keyboard.
    function __focusLabel(labels) {
        if (labels.length === 0 || labels.some(function(label) { return label.activeFocus }))
            return
        var last = Utils.findInArray(labels, function(label) { return label.kernoId === root.__focusedKerno })
        var label = last || labels[0]
        label.forceActiveFocus()
    }

    onActiveFocusChanged: if (activeFocus) __focusLabel(__labels(_flow, []))

    // Left to itself, the focus would come back from here to the label.
    Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onPressed: {
        var labels = __labels(_flow, [])
        __focusLabel(labels)
        var index = labels.findIndex(function(label) { return label.activeFocus })
        if (index < 0)
            return
        event.accepted = true
        if (event.matches(StandardKey.Cut))
            return takenKerno = labels[index].kernoId
        if (event.matches(StandardKey.Paste))
            return __paste(labels[index].kernoId)
        switch (event.key) {
        case Qt.Key_Escape:
            takenKerno = 0
            break
        case Qt.Key_Backspace:
            nest(labels[index].kernoId, -1)
            break
        case Qt.Key_Up:
        case Qt.Key_Down:
        case Qt.Key_Left:
        case Qt.Key_Right:
        case Qt.Key_Home:
        case Qt.Key_End:
            var places = labels.map(function(label) { return label.mapToItem(_flow, 0, 0) })
            labels[Geometry.neighbour(places, index, event.key, __labelWidth + _flow.spacing)].forceActiveFocus()
            break
        case Qt.Key_Return:
        case Qt.Key_Enter:
            CentralManager.showHierarchyViewForKerno = labels[index].kernoId
            break
        default:
            event.accepted = Utils.asksForMenu(event)
            if (event.accepted)
                showMenu(labels[index])
        }
    }

    KernoContextMenu { id: _menu }

    StyledScrollView {
        anchors.fill: parent

        Flickable {
            id: _view
            objectName: "treeView"
            contentWidth: Math.max(root.width - root.__bar,
                                   _flow.childrenRect.width + 2 * root.__margin - root.__bar)
            contentHeight: Math.max(root.height - root.__bar, _flow.childrenRect.height + 2 * root.__margin)
            boundsBehavior: Flickable.StopAtBounds

            MouseArea {
                anchors.fill: parent
                onClicked: CentralManager.unhandledMouseClick(mouse)
            }

            Flow {
                id: _flow
                x: root.__margin
                y: root.__margin
                width: root.width - 2 * root.__margin - root.__bar
                height: 2 * root.height
                flow: Flow.TopToBottom
                spacing: Units.dp(2)
                move: Transition {
                    enabled: CentralManager.animationsOn
                    NumberAnimation { properties: "x,y"; duration: 50 }
                }

                Repeater {
                    model: KernosModel {}

                    TreeViewKernoLevel0Delegate {
                        width: root.__labelWidth
                        dataSource: model
                        tree: root
                    }
                }
            }

            Item {
                id: _drags
                x: _flow.x
                y: _flow.y
                z: 1
            }
        }
    }

    GeneralKernoToolTip {
        id: _note

        property point mouse

        kernoId: root.__hovered ? root.__hovered.kernoId : -1
        suppressed: _menu.opened || !root.__hovered || root.__hovered.pressed
        maximumWidth: root.width / 2
        x: Math.min(mouse.x + standardOffset, root.width - root.__bar - width)
        y: Math.min(mouse.y + standardOffset, root.height - root.__bar - height)
    }
}
