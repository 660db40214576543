.pragma library

// Small stateless helpers over arrays, names and addresses of files.

function isArray(thing) {
    return Object.prototype.toString.call(thing) === "[object Array]"
}

function map(array, iterator) {
    return isArray(array) ? array.map(iterator) : []
}

function filter(array, predicate) {
    return isArray(array) ? array.filter(predicate) : []
}

// The first element that passes, or undefined.
function findInArray(array, predicate) {
    if (!isArray(array))
        return undefined
    for (var i = 0; i < array.length; ++i) {
        if (predicate(array[i], i, array))
            return array[i]
    }
    return undefined
}

// A sorted copy. `iterator` is a function that gives the key, or the name of a property. Equal keys keep their
// order, and elements without a key come last.
function sortBy(something, iterator) {
    var key = typeof iterator === "function" ? iterator : function(element) { return element[iterator] }
    return map(something, function(element, index) {
        return { element: element, key: key(element), index: index }
    }).sort(function(left, right) {
        if (left.key === right.key)
            return left.index - right.index
        if (left.key === undefined || right.key === undefined)
            return left.key === undefined ? 1 : -1
        return left.key > right.key ? 1 : -1
    }).map(function(entry) { return entry.element })
}

// Moves one element within the array itself and gives the array. Negative indices count from the end; a target
// past the end pads with undefined.
function moveInArray(array, old_index, new_index) {
    while (old_index < 0)
        old_index += array.length
    while (new_index < 0)
        new_index += array.length
    while (array.length <= new_index)
        array.push(undefined)
    array.splice(new_index, 0, array.splice(old_index, 1)[0])
    return array
}

function stringIfEmpty(str, orThisIfStrEmpty) {
    return str ? str : orThisIfStrEmpty
}

function iconSource(iconName, pressed) {
    return "qrc:///qml/images/%1%2.png".arg(iconName).arg(pressed ? "_pressed" : "")
}

function iconSourceForTheme(iconName, isDark) {
    return "qrc:///qml/images/%1%2.png".arg(iconName).arg(isDark ? "_dark" : "")
}

function __isWindows() {
    return Qt.platform.os === "windows" || Qt.platform.os === "winrt"
}

// The local path of a file's address.
function filePathFromUrl(fileUrl) {
    var text = decodeURIComponent(fileUrl.toString())
    if (__isWindows() && text.indexOf("file:///") === 0)
        return text.substring("file:///".length)
    return text.indexOf("file://") === 0 ? text.substring("file://".length) : text
}

function resolveUrlFromPath(path) {
    if (path.indexOf("file:") === 0)
        return path
    var escaped = encodeURI(path).replace(/#/g, "%23").replace(/\?/g, "%3F")
    return (__isWindows() ? "file:///" : "file://") + escaped
}

// The last part of a path; without its extension where `extension` is false.
function getFileName(path, extension) {
    var name = path.substring(path.lastIndexOf("/") + 1)
    var point = name.lastIndexOf(".")
    return extension === false && point >= 0 ? name.substring(0, point) : name
}

// The text with each "%1" to "%9" replaced by the value of that number. Unlike a chain of arg(), a "%" in a value stays.
function filled(pattern) {
    var values = arguments
    return pattern.replace(/%([1-9])/g, function(mark, number) {
        return number < values.length ? values[number] : mark
    })
}

// The text as it must stand in marked-up text to be read as it is.
function escaped(text) {
    return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;")
}

// Whether the key asks for the menu of what has the keyboard.
function asksForMenu(event) {
    return event.key === Qt.Key_Menu || event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier
}

// Where an arrow, Home or End leads from `index` in a row of things; -1 for every other key.
function indexAfterKey(key, index, count) {
    switch (key) {
    case Qt.Key_Up:
    case Qt.Key_Left:
        return Math.max(0, index - 1)
    case Qt.Key_Down:
    case Qt.Key_Right:
        return Math.min(index + 1, count - 1)
    case Qt.Key_Home:
        return 0
    case Qt.Key_End:
        return count - 1
    }
    return -1
}

// Writes the passage that a text drag carries into the record.
function fillPassage(record, drag) {
    record.start = drag.start
    record.length = drag.length
    record.questionId = drag.questionId
    record.sourceId = drag.sourceId
    return record
}
