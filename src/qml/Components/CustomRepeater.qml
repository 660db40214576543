import QtQuick 2.15

// A Repeater that keeps its items in `allItems`, in the order of their indices.
Repeater {
    id: root

    property var allItems: []

    onItemAdded: {
        var items = allItems.slice()
        items.splice(index, 0, item)
        allItems = items
    }
    onItemRemoved: {
        var items = allItems.slice()
        items.splice(index, 1)
        allItems = items
    }
}
