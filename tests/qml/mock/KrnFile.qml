import QtQuick 2.15
import KernovaMock 1.0

// What the screens ask of the project, answered from the rows of the mock models. `calls` records the writes.
QtObject {
    property bool isOpened: false
    property bool isOwner: true
    property bool canMutate: true
    property bool singleQuestionMode: true
    property bool awaitingOpenConfirmation: false
    property var currentProject: ({})
    property int connectedUserCount: 1
    property bool allTextsHere: true
    property int textsHere: 0
    property int textsExpected: 0
    property int textsFailed: 0
    property bool waitsForTexts: false
    property bool openResult: true
    property bool backupResult: true
    property var copyResult: [true, ""]
    property var preferences: ({})
    property var calls: []

    property MockRows groups: MockRows {}
    property MockRows messages: MockRows {}

    function getGroupModel() { return groups }
    function getChatModel() { return messages }
    function getAssociatedGroups(kernoId) { return [1] }
    function applyGroupFilter(apply) { calls.push({ name: "applyGroupFilter", arguments: [apply] }) }
    function setGroupVisible(id, visible) { calls.push({ name: "setGroupVisible", arguments: [id, visible] }) }

    signal sourcesChanged()
    signal sourceDeleted(int deletedId)
    signal highlightsUpdated(int sourceId, int questionId)
    signal newKernoAdded(int kernoId)
    signal kernoUpdated(int kernoId)
    signal kernoDeleted(int kernoId)
    signal kernosUpdated()
    signal groupsUpdated()
    signal metadataUpdated(bool isKey, var id)
    signal answerChanged(int sourceId, int questionId)
    signal questionsChanged()
    signal newSourceAdded(int sourceId)
    signal kernoAppeared(int x, int y)
    signal memoSaved(var memo)
    signal fileOpened()
    signal fileClosed()
    signal connected()
    signal disconnected()
    signal closedDueToAnotherSession()
    signal notifyUser(string noti)
    signal errorOccurred(string error)

    function openProject(project, createNew, password, singleQuestion, ignoreLock) {
        calls.push({ name: "openProject", arguments: [project.name, createNew, password, singleQuestion, ignoreLock] })
        if (openResult) {
            currentProject = project
            singleQuestionMode = singleQuestion
            isOpened = true
            fileOpened()
        }
        return openResult
    }
    function saveAsRemote(name) { calls.push({ name: "saveAsRemote", arguments: [name] }); return copyResult }
    function exportKRNSources(name) { calls.push({ name: "exportKRNSources", arguments: [name] }); return copyResult }
    function exportKRNStructure(name) { calls.push({ name: "exportKRNStructure", arguments: [name] }); return copyResult }
    function closeAndReset() { isOpened = false; fileClosed() }
    function getLastOpenError() { return "Unable to open project." }
    function makeBackup(url) { calls.push({ name: "makeBackup", arguments: [url] }); return backupResult }
    function getPreference(key, defaultValue) { return preferences[key] !== undefined ? preferences[key] : defaultValue }
    function savePreference(key, value) { preferences[key] = value; return true }
    function confirmOpenAlreadyOpenedFile(confirm) { calls.push({ name: "confirm", arguments: [confirm] }) }
    function setCurrentAuthor(author) { calls.push({ name: "setCurrentAuthor", arguments: [author] }) }
    function totalHighlightsCount() { return 12 }
    function maxHighlightsCount() { return 5 }
    function totalHighlightsCountByKernoId(id) { return id }
    function totalHighlightsCountByKernoIdAndSourceId(id, sourceId) { return 1 }
    function kerno(id) { return mockKernos.row(mockKernos.find("kernoId", id)) }
    function kernos(excludeIds) {
        var found = []
        for (var i = 0; i < mockKernos.rowCount(); ++i) {
            if (excludeIds.indexOf(mockKernos.row(i).kernoId) < 0)
                found.push(mockKernos.row(i))
        }
        return found
    }
    function children(id) {
        var found = []
        for (var i = 0; i < mockKernos.rowCount(); ++i) {
            if (mockKernos.row(i).parentKernoId === id)
                found.push(mockKernos.row(i))
        }
        return found
    }
    function anyVisibleChildren(id) {
        return children(id).some(function(child) { return child.visible || anyVisibleChildren(child.kernoId) })
    }
    function canReparent(id, parent) { return id > 0 && parent > 0 && id !== parent }
    function highlightsOverviewPerSourceForKerno(id) {
        return id === 1 ? [{ sourceTitle: "Marta, bus driver", kernoHighlights: 3, sourceHighlights: 9 },
                           { sourceTitle: "Jonas, night nurse", kernoHighlights: 1, sourceHighlights: 3 }] : []
    }
    function filterKernosByName(name) { calls.push({ name: "filterKernosByName", arguments: [name] }) }
    function source(id) { return mockSources.row(mockSources.find("sourceId", id)) }
    property QtObject sourceModel: QtObject { signal modelUpdated(var model) }
    function getSourceModel() { return sourceModel }
    function metadataOverviewForKeyId(id) { return [] }
    function metadataOverviewForKeyAndKernoId(id, kernoIds) { return [] }
    function sourceTitle(id) { return mockSources.row(mockSources.find("sourceId", id)).title }
    property string wholeAnswer
    function partialAnswer(sourceId, questionId, start, length) {
        return { sourceId: sourceId, questionId: questionId, offset: start, answer: wholeAnswer.substr(start, length) }
    }
    function partialAnswersForKernos(ids) { return [] }
    function partialAnswersForOverlapsBetweenKernos(id1, id2) { return [] }
    function memo(id) { return { memoId: id } }
}
