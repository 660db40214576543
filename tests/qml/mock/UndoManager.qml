import QtQuick 2.15

// Records what it is asked to do; a kerno's new place takes effect at once.
QtObject {
    property bool canUndo: true
    property bool canRedo: true
    property string undoText
    property string redoText
    property int index: 0
    property int count: 0
    property var calls: []

    signal changeRefused()

    function record(name, args) { calls.push({ name: name, arguments: args }) }
    function last() { return calls[calls.length - 1] }
    function names() { return calls.map(function(call) { return call.name }) }

    function undo() { record("undo", []) }
    function redo() { record("redo", []) }
    function clearStack() { record("clearStack", []) }
    function addKerno(data) { record("addKerno", [data]) }
    function updateKerno(kerno) {
        record("updateKerno", [kerno])
        mockKernos.change(mockKernos.find("kernoId", kerno.kernoId), kerno)
    }
    function deleteKerno(id) { record("deleteKerno", [id]) }
    function mergeKernos(id1, id2, name) { record("mergeKernos", [id1, id2, name]) }
    function duplicateKerno(id) { record("duplicateKerno", [id]) }
    function beginMacro(text) { record("beginMacro", []) }
    function endMacro() { record("endMacro", []) }
    function addKernoGroup(kernoId, groupId) { record("addKernoGroup", [kernoId, groupId]) }
    function deleteKernoGroup(kernoId, groupId) { record("deleteKernoGroup", [kernoId, groupId]) }
    function addHighlight(highlight) { record("addHighlight", [highlight]) }
    function addHighlightToNewKerno(highlight, kerno) { record("addHighlightToNewKerno", [highlight, kerno]) }
    function tryAddHighlightByShortcut(highlight, key) { record("tryAddHighlightByShortcut", [highlight, key]) }
    function deleteHighlight(id) { record("deleteHighlight", [id]) }
    function addMemo(memo) { record("addMemo", [memo]) }
    function updateMemo(memo) { record("updateMemo", [memo]) }
    function deleteMemo(id) { record("deleteMemo", [id]) }
    function addSource(source) { record("addSource", [source]) }
    function deleteSource(id) { record("deleteSource", [id]) }
}
