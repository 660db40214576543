import QtQuick 2.15
import Kernova 1.4
import "../Components"
import "../Utils.js" as Utils

// Which sources stand as tabs, and which of them is shown; and the list of all sources that slides down from
// behind the tabs.
Item {
    id: root

    property var currentIds: []
    property bool out: false
    property real maximumHeight: Units.dp(700)
    readonly property int maxCurrentTabs: 3
    readonly property string __prefCurrentIds: "SourcesList.CurrentIds"
    readonly property alias model: _model
    readonly property alias sourcePercentageCoded: _figures.ofSource
    readonly property alias globalPercentageCoded: _model.globalPercentageCoded

    signal removeRequested(int sourceId, string title)

    height: Math.min(Units.dp(700), maximumHeight)
    y: (__slide - 1) * (height + Units.dp(4))
    visible: __slide > 0

    // How far it is out, from 0 to 1. This is what moves, so that neither the start nor a new size makes it flash.
    property real __slide: out ? 1 : 0
    Behavior on __slide { NumberAnimation { duration: 200 } }

    SourceProxyModel { id: _model }

    function indexOf(sourceId) {
        for (var i = 0; i < _model.count; ++i) {
            if (_model.get(i, "sourceId") === sourceId)
                return i
        }
        return -1
    }

    function exists(sourceId) {
        return indexOf(sourceId) >= 0
    }

    function titleOf(sourceId) {
        var index = indexOf(sourceId)
        return index >= 0 ? _model.get(index, "title") : ""
    }

    function switchToSource(sourceId, oldSourceId) {
        if (sourceId === oldSourceId)
            return
        if (currentIds.indexOf(sourceId) < 0 && sourceId > 0) {
            currentIds = [sourceId].concat(currentIds).slice(0, maxCurrentTabs)
            saveCurrentIds()
        }
        CentralManager.notifyCurrentSourceChanged(sourceId)
    }

    function saveCurrentIds() {
        if (CentralManager.canMutate)
            krnFile.savePreference(__prefCurrentIds, JSON.stringify(currentIds))
    }

    function restoreSavedCurrentIds() {
        var before = JSON.stringify(currentIds)
        __takeSavedIds()
        trimCurrentIdsIfNeeded()
        if (currentIds.length > 0) {
            var shown = currentIds.indexOf(CentralManager.currentSourceId) >= 0
                    ? CentralManager.currentSourceId : currentIds[0]
            switchToSource(shown, CentralManager.currentSourceId)
        }
        if (JSON.stringify(currentIds) !== before)
            saveCurrentIds()
    }

    function __takeSavedIds() {
        var saved
        try {
            saved = JSON.parse(krnFile.getPreference(__prefCurrentIds, JSON.stringify(currentIds)))
        } catch (error) {
            saved = []
        }
        currentIds = __toppedUp(Utils.filter(saved, exists))
    }

    // Up to three ids, filled from the model's order.
    function __toppedUp(ids) {
        var list = ids.slice()
        for (var i = 0; i < _model.count && list.length < maxCurrentTabs; ++i) {
            var id = _model.get(i, "sourceId")
            if (list.indexOf(id) < 0)
                list.push(id)
        }
        return list
    }

    // The last id survives; the third and following go.
    function trimCurrentIdsIfNeeded() {
        var excess = currentIds.length - maxCurrentTabs
        if (excess > 0) {
            var ids = currentIds.slice()
            ids.splice(maxCurrentTabs - 1, excess)
            currentIds = ids
        }
    }

    function updateView() {
        var before = JSON.stringify(currentIds)
        restoreSavedCurrentIds()
        currentIds = __toppedUp(currentIds.filter(exists))
        trimCurrentIdsIfNeeded()
        if (JSON.stringify(currentIds) !== before)
            saveCurrentIds()
        var current = CentralManager.currentSourceId
        if (currentIds.length === 0)
            switchToSource(-1, current)
        else if (currentIds.indexOf(current) < 0)
            switchToSource(currentIds[0], current)
        _figures.refresh()
    }

    Connections {
        target: CentralManager

        function onNotifyNewSourceAdded(sourceId) {
            var own = sourceId === idManager.maxSourceId()
            if (!own && root.currentIds.length >= root.maxCurrentTabs)
                return
            if (root.currentIds.indexOf(sourceId) < 0) {
                root.currentIds = [sourceId].concat(root.currentIds).slice(0, root.maxCurrentTabs)
                root.saveCurrentIds()
            }
            if (own)
                root.switchToSource(sourceId, CentralManager.currentSourceId)
        }
        function onCurrentSourceIdChanged() { _figures.refresh() }
    }

    Connections {
        target: krnFile

        function onSourceDeleted(deletedId) {
            if (root.currentIds.indexOf(deletedId) >= 0)
                root.updateView()
        }
        function onFileClosed() {
            root.currentIds = []
            CentralManager.notifyCurrentSourceChanged(-1)
        }
    }

    Connections {
        target: _model

        function onCountChanged() {
            if (krnFile.isOpened && (root.currentIds.length === 0 || !root.currentIds.every(root.exists)))
                root.updateView()
        }
        function onDataChanged() { _figures.refresh() }
    }

    QtObject {
        id: _figures

        property int ofSource: 0
        // Titles may have changed, so whoever shows one reads it again.
        property int revision: 0

        function refresh() {
            var index = root.indexOf(CentralManager.currentSourceId)
            ofSource = index >= 0 ? _model.get(index, "sourcePercentageCoded") : 0
            revision += 1
        }
    }
    readonly property alias revision: _figures.revision

    SourcesListView {
        anchors.fill: parent
        list: root
    }
}
