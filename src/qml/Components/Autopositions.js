.pragma library

// Where kernos stand when the program arranges them, as fractions of the canvas: one list for each count to 12.
var fractions = [
    [],
    [[0.5, 0.5]],
    [[0.2, 0.5], [0.8, 0.5]],
    [[0.2, 0.2], [0.8, 0.2], [0.5, 0.8]],
    [[0.2, 0.2], [0.8, 0.2], [0.2, 0.8], [0.8, 0.8]],
    [[0.2, 0.2], [0.8, 0.2], [0.2, 0.8], [0.8, 0.8], [0.5, 0.5]],
    [[0.2, 0.2], [0.5, 0.2], [0.8, 0.2], [0.2, 0.8], [0.5, 0.8], [0.8, 0.8]],
    [[0.2, 0.2], [0.5, 0.2], [0.8, 0.2], [0.35, 0.5], [0.65, 0.5], [0.2, 0.8], [0.5, 0.8]],
    [[0.2, 0.3], [0.4, 0.3], [0.6, 0.3], [0.8, 0.3], [0.2, 0.7], [0.4, 0.7], [0.6, 0.7], [0.8, 0.7]],
    [[0.15, 0.15], [0.5, 0.15], [0.85, 0.15], [0.15, 0.5], [0.5, 0.5], [0.85, 0.5],
     [0.15, 0.85], [0.5, 0.85], [0.85, 0.85]],
    [[0.2, 0.2], [0.4, 0.2], [0.6, 0.2], [0.8, 0.2], [0.33, 0.5], [0.66, 0.5],
     [0.2, 0.8], [0.4, 0.8], [0.6, 0.8], [0.8, 0.8]],
    [[0.2, 0.2], [0.4, 0.2], [0.6, 0.2], [0.8, 0.2], [0.3, 0.5], [0.5, 0.5], [0.7, 0.5],
     [0.2, 0.8], [0.4, 0.8], [0.6, 0.8], [0.8, 0.8]],
    [[0.2, 0.15], [0.4, 0.15], [0.6, 0.15], [0.8, 0.15], [0.2, 0.5], [0.4, 0.5], [0.6, 0.5], [0.8, 0.5],
     [0.2, 0.85], [0.4, 0.85], [0.6, 0.85], [0.8, 0.85]]
]

// The position of the kerno at `index` of `count`, in canvas units. Above 12 they fill a grid.
function position(index, count, width, height) {
    if (index < 0 || count < 1)
        return Qt.point(0, 0)
    if (count < fractions.length) {
        var place = fractions[count][index]
        return place ? Qt.point(place[0] * width, place[1] * height) : Qt.point(0, 0)
    }
    var rows = Math.floor(Math.sqrt(count))
    var columns = Math.ceil(count / rows)
    return Qt.point(0.9 * width / columns * (index % columns) + 0.08 * width,
                    0.9 * height / rows * Math.floor(index / columns) + 0.08 * height)
}
