import QtQuick 2.15

QtObject {
    function kerno(assignNewId) { return { kernoId: assignNewId ? 99 : -1, title: "Untitled", x: 1, y: 1 } }
    function highlight() { return { highlightId: -1 } }
    function memo() { return { memoId: -1 } }
    function source() { return { sourceId: -1 } }
}
