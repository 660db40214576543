import QtQuick 2.15
import Kernova 1.4
import "../../Components"
import "../../Utils.js" as Utils

// The top-level kernos in the order of the canvas, with the manual order kept in step with the rows.
KernoProxyModel {
    id: root

    parentKernoId: -1
    sortType: CentralManager.kernosOrderField
    manualSort: CentralManager.autoArrangeKernos && CentralManager.kernosOrderField === KernoProxyModel.NoSort

    onRowsInserted: __scheduleRebuild(__currentOrder())
    onRowsRemoved: __scheduleRebuild(__currentOrder())
    onModelReset: __scheduleRebuild([])

    function __currentOrder() {
        return Array.prototype.slice.call(manualSortOrder)
    }

    function __scheduleRebuild(order) {
        __rebuildTimer.order = order
        __rebuildTimer.restart()
    }

    // Drops the ids that are gone from the order, and appends the new ones.
    function rebuiltOrder(order, present) {
        var kept = order.filter(function(id) { return present.indexOf(id) >= 0 })
        return kept.concat(present.filter(function(id) { return kept.indexOf(id) < 0 }))
    }

    // Moves the kerno to the arranged position nearest to the point.
    function rearrange(kernoId, canvasX, canvasY) {
        var order = __currentOrder()
        var index = order.indexOf(kernoId)
        if (index < 0)
            return
        var nearest = __nearestIndex(order.length, canvasX, canvasY)
        if (nearest === index)
            return
        var slot = CentralManager.getAutoposition(nearest, order.length)
        var newIndex = Math.max(0, canvasX < slot.x ? nearest - 1 : nearest)
        manualSortOrder = Utils.moveInArray(order, index, newIndex)
    }

    function __nearestIndex(count, canvasX, canvasY) {
        var nearest = -1
        var shortest = Infinity
        for (var i = 0; i < count; ++i) {
            var slot = CentralManager.getAutoposition(i, count)
            var squared = Math.pow(slot.x - canvasX, 2) + Math.pow(slot.y - canvasY, 2)
            if (squared < shortest) {
                shortest = squared
                nearest = i
            }
        }
        return nearest
    }

    property Timer __rebuildTimer: Timer {
        property var order: []
        interval: 100
        onTriggered: {
            var present = Array.prototype.slice.call(root.currentSortOrder())
            root.manualSortOrder = root.rebuiltOrder(order, present)
        }
    }

    property Connections __requests: Connections {
        target: CentralManager
        function onRearrangeInManualSortRequested(kernoId, canvasX, canvasY) {
            root.rearrange(kernoId, canvasX, canvasY)
        }
    }
}
