.pragma library

// The quarter of a surface in which a point lies: 1 top left, 2 top right, 3 bottom right, 4 bottom left.
function quarter(x, y, width, height) {
    var left = x < width / 2
    return y < height / 2 ? (left ? 1 : 2) : (left ? 4 : 3)
}
