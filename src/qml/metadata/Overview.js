.pragma library

// The eighteenth has no "#" and so is no colour: it is drawn white.
var colors = ["#0069b7", "#b1c901", "#424242", "#ff9c00", "#00c3b7", "#3fc00d", "#e60081", "#a2a2a2", "#ab016c",
              "#1abee3", "#b68407", "#e541b4", "#b115be", "#133b5e", "#c00000", "#987677", "#5c9805", "db0000",
              "#705655", "#f8d300", "#60507f", "#a3b9c7", "#c9bdb1", "#922635", "#016f94"]

function color(index) {
    var entry = colors[index % colors.length]
    return entry.charAt(0) === "#" ? entry : "white"
}

// A share as a part of a length. A figure that is none, or beyond the whole, draws nothing or all of it.
function part(factor) {
    return factor > 0 ? Math.min(1, factor) : 0
}

// The segments of a stacked bar: where each begins and how wide it is. They leave no gaps, and the bar ends with its
// width, whatever the shares sum up to.
function segments(values, width) {
    var sum = 0
    return values.map(function(value, index) {
        var start = Math.round(part(sum) * width)
        sum += part(value.keyFactor)
        return { x: start, width: Math.round(part(sum) * width) - start, color: color(index) }
    })
}

// A row for each key, followed by one for each of its values.
function rows(keys, overview) {
    var list = []
    keys.forEach(function(key) {
        var values = overview(key.keyId)
        list.push({ isKey: true, key: key.key, values: values, first: list.length === 0 })
        for (var i = 0; i < values.length; ++i) {
            list.push({ isKey: false, color: color(i), factor: values[i].valueFactor,
                        value: values[i].value, occurrences: values[i].valueOccurrences })
        }
    })
    return list
}
