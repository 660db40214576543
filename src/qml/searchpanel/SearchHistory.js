.pragma library

// The last searches: entries of `text`, which is shown, and `data`, from which a search is restored.

var maxSize = 10

function __yesNo(value) {
    return value ? "Y" : "N"
}

// `codedTextOnly` is the switch itself, which always counts as on, and its mark is what is stored: a restored
// search covers coded text only.
function entry(search, codedTextOnly) {
    var mark = __yesNo(codedTextOnly)
    var data = {}
    for (var name in search)
        data[name] = search[name]
    data.codedTextOnly = mark
    return {
        text: ["Term: " + search.term, "ALL: " + __yesNo(search.all), "WW: " + __yesNo(search.wholeWordsOnly),
               "SYN: " + __yesNo(search.synonyms), "ALT: " + __yesNo(search.similarWords), "CTO: " + mark].join(" | "),
        data: data
    }
}

// The list with the entry at its head. Of too many the last but one goes.
function added(list, newEntry) {
    var same = JSON.stringify(newEntry)
    var longer = [newEntry].concat(list.filter(function(old) { return JSON.stringify(old) !== same }))
    if (longer.length > maxSize)
        longer.splice(maxSize - 1, 1)
    return longer
}
