import QtQuick 2.15

// Remembers how far each source was scrolled: the answer at the top of the view, and the character at its top.
QtObject {
    id: root

    property Flickable view: null
    // Gives the loaded answer items in their order, or an empty list while some are missing.
    property var answerItems: function() { return [] }
    property var __savedPositions: ({})

    function clear() {
        __savedPositions = {}
    }

    function save(sourceId) {
        var items = answerItems()
        if (sourceId < 1 || items.length === 0)
            return
        for (var i = 0; i < items.length; ++i) {
            var top = __topOf(items[i])
            if (top + items[i].height > view.contentY || i === items.length - 1) {
                var y = Math.max(0, view.contentY - top - items[i].questionHeight)
                __savedPositions[sourceId] = { questionId: items[i].questionId, position: items[i].mainTextArea.positionAt(0, y) }
                return
            }
        }
    }

    // Where the view was for the source; the top where that is not known.
    function restored(sourceId) {
        var saved = __savedPositions[sourceId]
        var items = answerItems()
        var item = saved ? items.filter(function(item) { return item.questionId === saved.questionId })[0] : null
        if (!item || (item === items[0] && saved.position === 0))
            return 0
        return __topOf(item) + item.questionHeight + item.mainTextArea.positionToRectangle(Math.min(saved.position, item.length)).y
    }

    function __topOf(item) {
        return item.mapToItem(view.contentItem, 0, 0).y
    }
}
