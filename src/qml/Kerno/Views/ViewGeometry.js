.pragma library

// Where things stand in the overlap and hierarchy views. Lengths are in pixels, angles in degrees.

// Rings are at least this far apart, in overlap factors.
var ringStep = 0.2
// Factors are quotients: 0.6 - 0.4 is a little less than 0.2.
var tolerance = 1e-9

// How far from the centre a kerno stands, along the side of that length: the more overlaps, the nearer.
function ringRadius(overlapFactor, length, bubbleLength) {
    return (length / 2 - 2 * bubbleLength) * (1 - overlapFactor) + bubbleLength
}

// A point of the ellipse around the middle of the surface; angles run clockwise from the right.
function pointOnRing(angle, r1, r2, width, height) {
    var radians = angle * Math.PI / 180
    return Qt.point(r1 * Math.cos(radians) + width / 2, r2 * Math.sin(radians) + height / 2)
}

// The overlap view. `others` are the rows but the main kerno's, most overlaps first, each with `kernoId`, `overlaps`,
// `overlapFactor` and `angle`, the degrees between neighbours on its ring. Gives the centres of the bubbles by kerno
// in `places`, and the circles to draw in `rings`, the outermost first.
function overlapLayout(others, width, height, bubbleLength) {
    var places = {}
    for (var i = 0; i < others.length; ++i) {
        var row = others[i]
        places[row.kernoId] = pointOnRing(i * row.angle + row.angle % 360,
                                          ringRadius(row.overlapFactor, width, bubbleLength),
                                          ringRadius(row.overlapFactor, height, bubbleLength), width, height)
    }
    return { places: places, rings: overlapRings(others, width, height, bubbleLength) }
}

// One circle for each step of overlaps, from the outside inwards, with the place of its number: a twelfth of pi to the
// left of the top.
function overlapRings(others, width, height, bubbleLength) {
    var rings = []
    var last = -ringStep
    for (var i = others.length - 1; i >= 0; --i) {
        var factor = others[i].overlapFactor
        if (factor - last < ringStep - tolerance)
            continue
        last = factor
        var r1 = ringRadius(factor, width, bubbleLength)
        var r2 = ringRadius(factor, height, bubbleLength)
        rings.push({ overlaps: others[i].overlaps, r1: r1, r2: r2,
                     label: pointOnRing(-90 - 15, r1, r2, width, height) })
    }
    return rings
}

// The hierarchy view. How high the row of a bubble is that is drawn at `scale`.
function rowHeight(index, bubbleLength, scale, gap) {
    return bubbleLength * scale + (index > 0 ? gap : 0)
}

// The top of the bubble's unscaled square within its row.
function bubbleTop(index, rowHeight, bubbleLength) {
    return index > 0 ? (rowHeight - bubbleLength) / 2 : 0
}

// Where the line down the row begins and ends: behind the first bubble, and at the middle of the last row.
function rowLine(index, count, rowHeight, bubbleLength) {
    var middle = bubbleTop(index, rowHeight, bubbleLength) + bubbleLength / 2
    return { from: index > 0 ? 0 : middle, to: index === count - 1 ? middle : rowHeight }
}

// Where a view scrolls to for a row: up to its y if that is above, else to the page that holds it.
function scrolledToRow(y, height, contentY, viewHeight, contentHeight) {
    if (y < contentY)
        return y
    if (y + height <= contentY + viewHeight)
        return contentY
    var page = Math.floor(y / viewHeight) * viewHeight
    return Math.max(0, Math.min(Math.max(page, y + height - viewHeight), contentHeight - viewHeight))
}
