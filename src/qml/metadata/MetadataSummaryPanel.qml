import QtQuick 2.15
import Kernova 1.4
import "../Components"
import "Overview.js" as Overview

// The figures of all properties: how many sources have which value, of all sources or of those that some kernos code.
FocusScope {
    id: root

    property var kernoIds: []
    readonly property bool forKernos: CentralManager.showMetadataForKerno
    readonly property bool __shown: visible && CentralManager.hasFileOpen

    function refresh() {
        var keys = _keys.getAllItems()
        _rows.items = Overview.rows(keys, function(keyId) {
            return forKernos ? krnFile.metadataOverviewForKeyAndKernoId(keyId, kernoIds)
                             : krnFile.metadataOverviewForKeyId(keyId)
        })
    }

    function resetModel() {
        _rows.clear()
    }

    // One read for however many changes came at once.
    function __refreshSoon() {
        if (__shown)
            Qt.callLater(refresh)
    }

    on__ShownChanged: __refreshSoon()
    onKernoIdsChanged: __refreshSoon()
    onForKernosChanged: __refreshSoon()

    Connections {
        target: CentralManager
        function onNotifyMetadataUpdated() { root.__refreshSoon() }
        function onHasFileOpenChanged() { root.resetModel() }
    }

    Keys.onUpPressed: _list.flick(0, 500)
    Keys.onDownPressed: _list.flick(0, -500)

    MetadataKeyModel { id: _keys }

    VariantListModel {
        id: _rows
        simplifiedItemManagement: true
    }

    Rectangle {
        anchors.fill: parent
        color: ApplicationStyle.source_background_color
    }

    Item {
        id: _head
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: ApplicationStyle.default_margin }
        height: Units.dp(36)

        IconButton {
            id: _closeBoth
            objectName: "closeOverviewAndProperties"
            anchors.verticalCenter: parent.verticalCenter
            width: visible ? implicitWidth : 0
            visible: !root.forKernos
            icon: "delete"
            tooltip: qsTr("Close Overview and Properties")
            onClicked: {
                CentralManager.showMetadataPanel = false
                CentralManager.showMetadataOverviewPanel = false
            }
        }
        DialogLabel {
            anchors { left: _closeBoth.right; leftMargin: root.forKernos ? 0 : Units.dp(8); right: _close.left }
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Properties Overview")
            font.pixelSize: Units.dp(25)
        }
        IconButton {
            id: _close
            objectName: "closeOverview"
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            visible: !root.forKernos
            icon: "close"
            tooltip: qsTr("Close Overview")
            onClicked: CentralManager.showMetadataOverviewPanel = false
        }
    }

    StyledScrollView {
        anchors { left: parent.left; right: parent.right; top: _head.bottom; bottom: parent.bottom }
        anchors { leftMargin: ApplicationStyle.default_margin; topMargin: ApplicationStyle.default_margin }
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

        // One list over all keys and their values, so that only what is in sight is made.
        ListView {
            id: _list
            objectName: "propertiesOverviewList"
            model: _rows
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            delegate: Loader {
                readonly property var row: modelData

                width: _list.width - ApplicationStyle.default_margin
                sourceComponent: row.isKey ? _key : _value
            }
        }
    }

    Component { id: _key; MetadataOverviewKey {} }
    Component { id: _value; MetadataOverviewValue {} }

    PlainText {
        anchors.centerIn: parent
        visible: _list.count === 0
        text: qsTr("No Properties to Display")
        color: ApplicationStyle.source_text_color
        opacity: 0.75
        font.pixelSize: ApplicationStyle.dialog_text_font_size
    }
}
