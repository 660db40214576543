.pragma library

// The tree view's lines, and the ways of the arrow keys.

// Where the line beside the rows ends: at the middle of the last row that is seen. Each row has `y`, `visible` and
// `middle`, the middle of its label; what has none isn't a row.
function lineEnd(rows) {
    for (var i = rows.length - 1; i >= 0; --i) {
        if (rows[i].visible && rows[i].middle !== undefined)
            return rows[i].y + rows[i].middle
    }
    return 0
}

// The place to which an arrow key leads from the one at `index`: the one before or after, or the nearest at the same
// height in the column beside. Places are points in their order; -1 without any.
function neighbour(places, index, key, columnWidth) {
    if (places.length === 0)
        return -1
    if (index < 0 || key === Qt.Key_Home)
        return 0
    if (key === Qt.Key_End)
        return places.length - 1
    if (key === Qt.Key_Up || key === Qt.Key_Down)
        return Math.max(0, Math.min(index + (key === Qt.Key_Down ? 1 : -1), places.length - 1))
    var column = Math.floor(places[index].x / columnWidth) + (key === Qt.Key_Right ? 1 : -1)
    var nearest = index
    var shortest = Infinity
    for (var i = 0; i < places.length; ++i) {
        var distance = Math.abs(places[i].y - places[index].y)
        if (Math.floor(places[i].x / columnWidth) === column && distance < shortest) {
            shortest = distance
            nearest = i
        }
    }
    return nearest
}
