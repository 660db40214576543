import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Utils.js" as Utils

TestCase {
    name: "Utils"

    function test_sortByIsStableAndPutsMissingKeysLast() {
        var rows = [{ k: 2, n: "a" }, { n: "b" }, { k: 1, n: "c" }, { k: 2, n: "d" }, { n: "e" }, { k: 1, n: "f" }]
        compare(Utils.sortBy(rows, "k").map(function(row) { return row.n }).join(""), "cfadbe")
        compare(rows[0].n, "a")
    }

    function test_moveInArray_data() {
        return [
            { tag: "down", from: 0, to: 2, result: "bcad" },
            { tag: "up", from: 3, to: 1, result: "adbc" },
            { tag: "from the end", from: -1, to: 0, result: "dabc" },
            { tag: "past the end", from: 0, to: 5, result: "bcd--a" }
        ]
    }
    function test_moveInArray(data) {
        var moved = Utils.moveInArray(["a", "b", "c", "d"], data.from, data.to)
        compare(moved.map(function(c) { return c === undefined ? "-" : c }).join(""), data.result)
    }

    function test_names() {
        compare(["/a.b/c.d.krn", "/a/b"].map(function(path) { return Utils.getFileName(path) }), ["c.d.krn", "b"])
        compare(["/a.b/c.d.krn", "/a/b"].map(function(path) { return Utils.getFileName(path, false) }), ["c.d", "b"])
    }

    function test_pathsAndUrlsAgree() {
        var paths = ["/projects/night.krn", "/a b/c#1?.krn", "/ä/100%.krn"]
        for (var i = 0; i < paths.length; ++i)
            compare(Utils.filePathFromUrl(Utils.resolveUrlFromPath(paths[i])), paths[i])
    }

    function test_aTitleStaysWholeInASentence() {
        compare(Utils.filled("By: %1 on %2", "50%2 %1", "today"), "By: 50%2 %1 on today")
    }
}
