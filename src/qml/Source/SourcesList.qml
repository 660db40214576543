import QtQuick 2.15
import Kernova 1.4
import "../Components"

// The sources that stand as tabs, and the list of all sources that slides down from behind them.
Item {
    id: root

    property bool out: false
    property real maximumHeight: Units.dp(700)
    readonly property alias model: _model
    readonly property alias tabs: _tabs.tabs
    readonly property alias sourcePercentageCoded: _tabs.percentageCoded
    readonly property alias globalPercentageCoded: _model.globalPercentageCoded

    signal removeRequested(int sourceId, string title)

    height: Math.min(Units.dp(700), maximumHeight)
    y: (__slide - 1) * (height + Units.dp(4))
    visible: __slide > 0

    // How far it is out, from 0 to 1. This is what moves, so that neither the start nor a new size makes it flash.
    property real __slide: out ? 1 : 0
    Behavior on __slide { NumberAnimation { duration: 200 } }

    function switchToSource(sourceId) {
        _tabs.switchToSource(sourceId)
    }

    SourceProxyModel { id: _model }

    SourceTabs {
        id: _tabs
        currentSourceId: CentralManager.currentSourceId
        onSourceRequested: CentralManager.notifyCurrentSourceChanged(sourceId)
    }

    SourcesListView {
        anchors.fill: parent
        list: root
    }
}
