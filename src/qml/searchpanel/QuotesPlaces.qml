import QtQuick 2.15
import "../Components"

// Where quotes stand below one another. Numbers for all of them, while only those that are drawn are touched: a
// positioner would go over thousands of items, and each that a script has met stays in its memory.
QtObject {
    property real spacing: Units.dp(20)
    property real margin: ApplicationStyle.default_margin
    // From above the first quote to below the last.
    property real columnHeight: 0
    // Quotes that have their places.
    property int standing: 0
    // What a quote is taken to be high before it was drawn: as high as the last one that was.
    property real __likelyHeight: Units.dp(110)
    property var __heights: []
    property var __tops: []

    function resize(count) {
        while (__heights.length < count)
            __heights.push(__likelyHeight)
        __heights.length = count
    }

    // Whether that changes anything.
    function setHeight(place, height) {
        if (height <= 0 || __heights[place] === height)
            return false
        __heights[place] = height
        __likelyHeight = height
        return true
    }

    function layOut() {
        var y = margin
        __tops = __heights.map(function(height) {
            var top = y
            y += height + spacing
            return top
        })
        standing = __tops.length
        columnHeight = standing > 0 ? y - spacing + margin : 0
    }

    function topOf(place) {
        return __tops[place]
    }

    // The last quote that begins at the height or above it.
    function placeAt(height) {
        var from = 0
        var to = __tops.length
        while (to - from > 1) {
            var middle = Math.floor((from + to) / 2)
            if (__tops[middle] <= height)
                from = middle
            else
                to = middle
        }
        return from
    }
}
