import QtQuick 2.15

// What draws quotes: made as it is asked for, never let go of, and hidden while it draws none.
QtObject {
    id: root

    property Component component: null
    property Item owner: null
    property int spare: 0
    property var __spare: []
    property int __making: 0

    signal made(Item item)

    // One of those that are spare.
    function take() {
        var item = __spare.pop()
        spare = __spare.length
        return item
    }

    function giveBack(item) {
        item.visible = false
        item.deselect()
        __add(item)
    }

    // Makes more until so many are spare.
    function keep(number) {
        for (; __making < number - spare; ++__making) {
            var incubator = component.incubateObject(owner, { visible: false })
            if (incubator.status === Component.Ready)
                Qt.callLater(__takeIn, incubator.object)
            else
                incubator.onStatusChanged = __whenMade(incubator)
        }
    }

    function __whenMade(incubator) {
        return function(status) {
            if (status === Component.Ready)
                root.__takeIn(incubator.object)
        }
    }

    function __takeIn(item) {
        --__making
        __add(item)
        made(item)
    }

    function __add(item) {
        __spare.push(item)
        spare = __spare.length
    }
}
