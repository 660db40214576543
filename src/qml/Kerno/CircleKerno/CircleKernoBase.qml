import QtQuick 2.15
import "../../Components"

// A kerno as a bubble. Its geometry is fixed; how large it is drawn comes from its `scale`. A project may have a thousand
// of them, so what few of them show is made when it is shown.
Rectangle {
    id: root

    property int level: 2
    readonly property string type: "kerno"
    property var dataSource: null
    property bool hovered: false
    property bool expanded: false
    property bool isDragging: false
    property bool manualPosition: false
    property bool greyed: false
    property bool showContextMenu: false
    readonly property bool haloOn: !!_halo.item && _halo.item.haloOn
    // A longer title is cut, so that it leaves its neighbours legible, and where bubbles crowd all are written smaller; it
    // is whole while the mouse rests on it.
    property real titleRoom: Units.dp(level === 0 ? 150 : 90)
    property bool forceAutoPosition: false
    property real canvasXAuto: 0
    property real canvasYAuto: 0
    property bool showNumberOfCodings: CentralManager.showNumberOfCodingsInKernos
    property Item ring: null

    readonly property int kernoId: __value("kernoId", 0)
    readonly property int parentKernoId: __value("parentKernoId", 0)
    readonly property string title: dataSource ? __title(dataSource.title) : ""
    property color background: greyed ? "grey" : __value("color", "#ffffff")
    readonly property real scaledR: Units.dp(25)
    readonly property bool hasChildKernos: __value("hasChildren", false)
    readonly property real canvasX: __value("x", 0)
    readonly property real canvasY: __value("y", 0)
    readonly property bool __auto: CentralManager.autoArrangeKernos || forceAutoPosition
    readonly property real _canvasX: __auto ? canvasXAuto : canvasX
    readonly property real _canvasY: __auto ? canvasYAuto : canvasY
    readonly property int highlightsCount: __value("highlightsCount", 0)
    readonly property bool titleHighlighted: hovered || level === 0
    readonly property string codingText: showNumberOfCodings ? __codingText(__value("highlightsCountWithChildren", 0)) : ""
    property bool __complete: false

    width: 2 * scaledR
    height: 2 * scaledR
    radius: scaledR
    z: hovered ? 4 : 0
    scale: __value("scale", 1.0)
    border { width: Units.dp(2); color: Qt.darker(background, 2) }
    gradient: Gradient {
        GradientStop { position: 0; color: root.background }
        GradientStop { position: 1; color: Qt.darker(root.background, 1.5) }
    }

    Drag.active: isDragging
    Drag.keys: ["circle", "kerno"]
    Drag.hotSpot: Qt.point(scaledR, scaledR)

    Behavior on scale {
        enabled: CentralManager.animationsOn
        NumberAnimation { duration: 200 }
    }

    function __value(role, missing) {
        var value = dataSource ? dataSource[role] : undefined
        return value !== undefined ? value : missing
    }

    function __title(title) {
        return title !== undefined ? title || qsTr("Untitled") : ""
    }

    function __codingText(countWithChildren) {
        return countWithChildren === highlightsCount ? "%1".arg(highlightsCount)
                                                     : "%1 (%2)".arg(highlightsCount).arg(countWithChildren)
    }

    onHighlightsCountChanged: CentralManager.notifyHighlightsCountChanged()
    onHoveredChanged: {
        if (hovered)
            CentralManager.notifyKernoMouseEntered(kernoId)
        else
            CentralManager.notifyKernoMouseExited(kernoId)
    }
    Component.onCompleted: {
        _halo.active = kernoId > 0 && kernoId === CentralManager.showPreferencesDialogForKerno
        __complete = true
    }

    Loader {
        id: _halo
        active: false
        sourceComponent: NewKernoHalo { onFinished: _halo.active = false }
    }

    Connections {
        target: krnFile
        function onNewKernoAdded(kernoId) {
            if (kernoId === root.kernoId)
                _halo.active = true
        }
    }

    // Once made it stays, for its fading.
    Loader {
        id: _inner

        readonly property bool shown: root.hasChildKernos || root.haloOn

        anchors { fill: parent; margins: 1.5 * root.border.width }
        active: false
        onShownChanged: active = true
        sourceComponent: BubbleRing {
            background: root.background
            level: root.level
            shown: _inner.shown
            fades: root.__complete
        }
    }

    Rectangle {
        id: _label
        anchors.horizontalCenter: parent.horizontalCenter
        y: (parent.height - height) / 2 - (root.showNumberOfCodings ? _title.height / 3 : 0)
        width: _title.width + 2
        height: _title.height + 2
        radius: 4
        color: root.title === "" ? "transparent" : Qt.rgba(0, 0, 0, root.titleHighlighted ? 0.7 : 0.2)

        Behavior on y {
            enabled: CentralManager.animationsOn
            NumberAnimation {}
        }

        PlainText {
            id: _title
            anchors.centerIn: parent
            leftPadding: Units.dp(3)
            rightPadding: Units.dp(3)
            text: root.title
            color: Qt.rgba(1, 1, 1, root.titleHighlighted ? 1.0 : 0.6)
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            width: root.hovered ? implicitWidth : Math.min(implicitWidth, root.titleRoom)
            font.pixelSize: Units.dp(root.hovered || root.titleRoom > 1.5 * root.width ? 15 : 11)
        }
    }

    Loader {
        anchors { top: _label.bottom; topMargin: Units.dp(2); horizontalCenter: parent.horizontalCenter }
        active: root.showNumberOfCodings
        sourceComponent: Rectangle {
            width: _codings.width + Units.dp(4)
            height: _codings.height
            radius: Units.dp(5)
            color: Qt.rgba(0, 0, 0, root.titleHighlighted ? 0.7 : 0.2)

            PlainText {
                id: _codings
                anchors.centerIn: parent
                text: root.codingText
                color: Qt.rgba(1, 1, 1, root.titleHighlighted ? 1.0 : 0.6)
                font.pixelSize: Units.dp(11)
            }
        }
    }
}
