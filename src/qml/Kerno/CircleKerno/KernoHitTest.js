.pragma library

// Collects into `kernos` the bubbles of one level and type under the point, the top-most first. `mouse` is given in
// the coordinates of `callingItem`. What counts is the square around a bubble, as it is scaled.
function getKernosBelowCursor(callingItem, mouse, kernos, theParent, level, type) {
    var children = theParent.visibleChildren
    for (var i = children.length - 1; i >= 0; --i) {
        var child = children[i]
        if (child.level === undefined)
            getKernosBelowCursor(callingItem, mouse, kernos, child, level, type)
        else if (child.level === level && child.type === type && contains(callingItem, mouse, child))
            kernos.push(child)
    }
    return kernos
}

function contains(callingItem, mouse, item) {
    return item.contains(callingItem.mapToItem(item, mouse.x, mouse.y))
}
