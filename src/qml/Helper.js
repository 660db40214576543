.pragma library

// The project, set when the main window is complete.
var krnFile = null

function randomBetween(min, max) {
    return Math.floor(Math.random() * (max - min + 1)) + min
}

// Whether the point lies inside the circle (`x`, `y`, `r` in units of the surface's scale).
function insideCircle(circle, x, y, surface) {
    var scale = surface && surface.scale ? surface.scale : 1
    var dx = x - circle.x * scale
    var dy = y - circle.y * scale
    var radius = circle.r * scale
    return dx * dx + dy * dy <= radius * radius
}

// "key: value" pairs of the source's `metadata`, joined until the text reaches 100 characters.
function getMetadataBasedOverview(source) {
    var pairs = source && source.metadata ? source.metadata : []
    var text = ""
    for (var i = 0; i < pairs.length && text.length < 100; ++i)
        text += (text ? ", " : "") + pairs[i].key + ": " + pairs[i].value
    return text ? text : qsTr("No overview available")
}

// Kept as callers know it: a non-empty array counts as empty.
function isEmpty(thing) {
    if (thing === undefined || thing === null)
        return true
    if (typeof thing === "object")
        return thing.length > 0
    return thing.length === 0
}
