import QtQuick 2.15
import Kernova 1.4

QtObject {
    property bool clipboardContainsText: false
    property string userInvokedFile
    property bool isTouchEnabledDevice: false
    property string region: "local"
    property int exchangeProgress: 0
    property string cloudHost
    property bool cloudHostFixed: false
    property var calls: []
    property var answers: ({})

    function __answer(name) {
        calls.push(name)
        var answer = answers[name] || { status: true, value: {} }
        return { status: answer.status, message: answer.message || "", value: JSON.stringify(answer.value || {}) }
    }
    function login(email, password) { return __answer("login") }
    function projects() { return __answer("projects") }
    function projectsShared() { return __answer("projectsShared") }
    function createNewProject(title) { return __answer("createNewProject") }
    function removeProject(uuid) { return __answer("removeProject") }
    function isTestMode() { return false }
    property string clipboard
    property var imported: []

    property VariantListModel searchResults: VariantListModel {}

    signal searchStarted()
    signal searchResultsAvailable(var results)
    signal searchFinished()

    function applicationVersion() { return "2.5.3" }
    function aboutDialogContent() { return "Licences" }
    function calculateNewKernoPosition(width, height) { return Qt.point(width / 2, height / 2) }
    function connectToServer(remote) { krnFile.connected(); return true }
    function wsTimeout() { return 60000 }
    function setCurrentAuthor(author) {}
    function setClipboardText(text) { clipboard = text }
    function clearUserInvokedFile() { userInvokedFile = "" }
    function goToWebsite() { return true }
    function manageProjects() { return true }
    property var found: []
    property var saved: []
    function importPreview(text, longest) { return text.substring(0, longest) }
    function importQuestions(file, questionMarker, answerMarker) { return found }
    function importQuestionsFromClipboard(questionMarker, answerMarker) { return found }
    function saveImportedQuestions(title, items) { saved.push([title, items.length]); return items.length > 0 }
    function batchImportQuestions(files) { imported.push(files) }
    function synonyms(word) { return [] }
    function plainText(answer) { return answer }
}
