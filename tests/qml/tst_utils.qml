import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Helper.js" as Helper
import "qrc:/qml/Utils.js" as Utils

TestCase {
    name: "Utils"

    function test_arraysOnly() {
        compare(Utils.map("abc", function(c) { return c }), [])
        compare(Utils.filter(null, function() { return true }), [])
        compare(Utils.findInArray([1, 2, 3], function(n) { return n > 5 }), undefined)
        compare(Utils.findInArray([1, 2, 3], function(n) { return n > 1 }), 2)
    }

    function test_sortByIsStableAndPutsMissingKeysLast() {
        var rows = [{ k: 2, n: "a" }, { n: "b" }, { k: 1, n: "c" }, { k: 2, n: "d" }, { n: "e" }, { k: 1, n: "f" }]
        var names = Utils.sortBy(rows, "k").map(function(row) { return row.n }).join("")
        compare(names, "cfadbe")
        compare(rows[0].n, "a")
    }

    function test_moveInArray_data() {
        return [
            { tag: "down", from: 0, to: 2, result: "bcad" },
            { tag: "up", from: 3, to: 1, result: "adbc" },
            { tag: "from the end", from: -1, to: 0, result: "dabc" },
            { tag: "to the end", from: 0, to: -1, result: "bcda" },
            { tag: "past the end", from: 0, to: 5, result: "bcd--a" }
        ]
    }
    function test_moveInArray(data) {
        var moved = Utils.moveInArray(["a", "b", "c", "d"], data.from, data.to)
        compare(moved.map(function(c) { return c === undefined ? "-" : c }).join(""), data.result)
    }

    function test_names_data() {
        return [
            { tag: "plain", path: "/a/b/c.txt", withExtension: "c.txt", without: "c" },
            { tag: "points", path: "/a.b/c.d.krn", withExtension: "c.d.krn", without: "c.d" },
            { tag: "none", path: "/a/b", withExtension: "b", without: "b" }
        ]
    }
    function test_names(data) {
        compare(Utils.getFileName(data.path), data.withExtension)
        compare(Utils.getFileName(data.path, false), data.without)
    }

    function test_pathsAndUrlsAgree_data() {
        return ["/projects/night.krn", "/a b/c#1?.krn", "/ä/100%.krn"].map(function(path) {
            return { tag: path, path: path }
        })
    }
    function test_pathsAndUrlsAgree(data) {
        compare(Utils.filePathFromUrl(Utils.resolveUrlFromPath(data.path)), data.path)
    }

    function test_iconNames() {
        compare(Utils.iconSource("delete", true), "qrc:///qml/images/delete_pressed.png")
        compare(Utils.iconSourceForTheme("delete", true), "qrc:///qml/images/delete_dark.png")
        compare(Utils.iconSourceForTheme("delete", false), "qrc:///qml/images/delete.png")
    }

    function test_isEmptyKeepsItsOddAnswerForArrays() {
        verify(Helper.isEmpty([1]))
        verify(!Helper.isEmpty([]))
        verify(Helper.isEmpty(""))
        verify(!Helper.isEmpty("a"))
    }

    function test_overviewStopsAtHundredCharacters() {
        compare(Helper.getMetadataBasedOverview({}), "No overview available")
        var pairs = []
        for (var i = 0; i < 50; ++i)
            pairs.push({ key: "key" + i, value: "value" })
        var text = Helper.getMetadataBasedOverview({ metadata: pairs })
        compare(text.indexOf("key0: value, key1: value"), 0)
        verify(text.length >= 100 && text.length < 115)
    }
}
