import QtQuick 2.15
import "../../Components"

// A kerno as a bubble. Its geometry is fixed; how large it is drawn comes from its `scale`.
Rectangle {
    id: root

    property int level: 2
    readonly property string type: "kerno"
    property var dataSource: null
    property bool hovered: false
    property bool expanded: false
    property bool isDragging: false
    property bool manualPosition: false
    property bool showContextMenu: false
    readonly property bool haloOn: !!_halo.item && _halo.item.haloOn
    property bool forceAutoPosition: false
    property real canvasXAuto: 0
    property real canvasYAuto: 0
    property bool showNumberOfCodings: CentralManager.showNumberOfCodingsInKernos
    property Item ring: null

    readonly property int kernoId: __value("kernoId", 0)
    readonly property int parentKernoId: __value("parentKernoId", 0)
    readonly property string title: dataSource && dataSource.title !== undefined
                                    ? dataSource.title || qsTr("Untitled") : ""
    property color background: __value("color", "#ffffff")
    readonly property real scaledR: Units.dp(25)
    readonly property bool hasChildKernos: __value("hasChildren", false)
    readonly property real canvasX: __value("x", 0)
    readonly property real canvasY: __value("y", 0)
    readonly property bool __auto: CentralManager.autoArrangeKernos || forceAutoPosition
    readonly property real _canvasX: __auto ? canvasXAuto : canvasX
    readonly property real _canvasY: __auto ? canvasYAuto : canvasY
    readonly property int highlightsCount: __value("highlightsCount", 0)
    readonly property bool titleHighlighted: hovered || level === 0
    readonly property int countWithChildren: __value("highlightsCountWithChildren", 0)
    readonly property string codingText: countWithChildren === highlightsCount
                                         ? "%1".arg(highlightsCount) : "%1 (%2)".arg(highlightsCount).arg(countWithChildren)

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

    // A drop that has consumed the bubble says so by this state.
    states: State { name: "destroyed" }

    Behavior on scale {
        enabled: CentralManager.animationsOn
        NumberAnimation { duration: 200 }
    }

    function __value(role, missing) {
        return dataSource && dataSource[role] !== undefined ? dataSource[role] : missing
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

    Rectangle {
        anchors { fill: parent; margins: 1.5 * root.border.width }
        radius: width / 2
        color: "transparent"
        border { width: Units.dp(0.6); color: Qt.darker(root.background, 1.7) }
        opacity: root.hasChildKernos || root.haloOn ? 1 : 0

        Behavior on opacity { NumberAnimation {} }

        Rectangle {
            anchors { fill: parent; margins: Units.dp(2) }
            radius: width / 2
            color: "transparent"
            opacity: root.level === 0 ? 0.5 : 0.7
            border { width: Units.dp(3); color: "white" }
        }
    }

    Item {
        id: _label
        anchors.horizontalCenter: parent.horizontalCenter
        y: (parent.height - height) / 2 - (root.showNumberOfCodings ? _title.height / 3 : 0)
        width: _title.width + 2
        height: _title.height + 2

        Behavior on y {
            enabled: CentralManager.animationsOn
            NumberAnimation {}
        }

        Rectangle {
            anchors.fill: parent
            radius: 4
            color: "black"
            visible: root.title !== ""
            opacity: root.titleHighlighted ? 0.7 : 0.2
        }
        PlainText {
            id: _title
            anchors.centerIn: parent
            leftPadding: Units.dp(3)
            rightPadding: Units.dp(3)
            text: root.title
            color: "white"
            opacity: root.titleHighlighted ? 1.0 : 0.6
            wrapMode: Text.NoWrap
            font.pixelSize: Units.dp(15)
        }
    }

    Item {
        anchors { top: _label.bottom; topMargin: Units.dp(2); horizontalCenter: parent.horizontalCenter }
        visible: root.showNumberOfCodings
        width: _codings.width + Units.dp(4)
        height: _codings.height

        Rectangle {
            anchors.fill: parent
            radius: Units.dp(5)
            color: "black"
            opacity: root.titleHighlighted ? 0.7 : 0.2
        }
        PlainText {
            id: _codings
            anchors.centerIn: parent
            text: root.codingText
            color: "white"
            opacity: root.titleHighlighted ? 1.0 : 0.6
            font.pixelSize: Units.dp(11)
        }
    }
}
