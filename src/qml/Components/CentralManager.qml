pragma Singleton
import QtQuick 2.15
import Qt.labs.settings 1.0

// The state that all screens share, and how it follows the project. Screens never call each other: they set
// properties here, and listen to properties and signals.
CentralManagerActions {
    id: root

    // A link that falls this soon after a project was opened reopens it.
    readonly property int __reopenWindow: 60000
    property int __openedMemoId: -1

    Settings {
        property alias darkTheme: root.darkTheme
    }

    function __reopenIfDue() {
        if (!reopen)
            return
        var fellSoon = Math.abs(disconnectedAt - reopen.timestamp) < __reopenWindow
        var longOutage = new Date() - disconnectedAt > appHelper.wsTimeout() && reopen.project.shared_count > 0
        // Opening as new would empty the project.
        if (fellSoon || longOutage)
            openProject(reopen.project, reopen.password, false, reopen.singleQuestion, reopen.ignoreLock)
    }

    function __setUndoLock(locked) {
        if (locked)
            setNewUndoStackLock()
        else
            removeUndoStackLock()
    }

    onActionHoverChanged: {
        var text = actionTooltip ? actionTooltip : actionText
        if (hovered)
            showStatusMessage(text, 0)
        else
            dismissStatusMessage(text)
    }

    onNotifyHighlightsChanged: {
        totalNumberOfHighlights = krnFile.totalHighlightsCount()
        maxNumberOfHighlights = krnFile.maxHighlightsCount()
    }

    onNotifyCurrentSourceChanged: currentSourceId = sourceId

    onReportRequested: {
        reportOutputFolder = appHelper.createReportFolder()
        if (reportOutputFolder === "") {
            reportCriteria = null
            showAlert(qsTr("Report Error"), qsTr("A folder for the report could not be made."))
        }
    }

    onNotifyMemoAdded: {
        // A memo that someone else has made opens nothing, and one's own only once: what is written into it later
        // must not take the focus from where its author has gone.
        if (memoId === idManager.maxMemoId() && memoId !== __openedMemoId) {
            __openedMemoId = memoId
            showMemosPanel = true
            currentMemoId = memoId
        }
    }

    onConnectedChanged: {
        if (connected)
            __reopenIfDue()
        else
            disconnectedAt = new Date()
    }

    onShowSearchPanelChanged: {
        if (showSearchPanel) {
            showMetadataOverviewPanel = false
            showMetadataPanel = false
        } else {
            searchPanelMinimized = false
        }
    }

    onShowMetadataPanelChanged: {
        if (showMetadataPanel) {
            showMetadataOverviewPanel = false
            showSearchPanel = false
        }
    }

    onShowNumberOfCodingsInKernosChanged: {
        if (krnFile.isOpened && canMutate)
            krnFile.savePreference(preferenceKeys.showNumberOfCodings, showNumberOfCodingsInKernos)
    }

    onShowingOverlapOrHierarchyChanged: {
        if (showingOverlapOrHierarchy)
            showSearchPanel = false
        __setUndoLock(showingOverlapOrHierarchy)
    }

    onShowQueryScreenChanged: __setUndoLock(showQueryScreen)

    onShowHierarchyViewForKernoChanged: {
        if (showHierarchyViewForKerno === -1) {
            parentForNew = -1
            showMetadataForKerno = false
        } else {
            parentForNew = showHierarchyViewForKerno
        }
    }

    onCurrentAuthorChanged: {
        krnFile.setCurrentAuthor(currentAuthor)
        appHelper.setCurrentAuthor(currentAuthor)
    }

    Connections {
        target: appHelper

        function onUserInvokedFileChanged() {
            if (appHelper.userInvokedFile !== "")
                root.showOpenFileDialog = true
        }
    }

    Connections {
        target: undoManager

        function onChangeRefused() {
            root.tell(qsTr("The change was not made, because the project could not be read. Please try again."))
        }
    }

    Connections {
        target: krnFile

        function onHighlightsUpdated(sourceId, questionId) { root.notifyHighlightsChanged(sourceId, questionId) }
        function onKernosUpdated() { root.notifyKernosChanged() }
        function onKernoUpdated(kernoId) { root.notifyKernoUpdated(kernoId) }
        function onKernoDeleted(kernoId) { root.notifyKernoUpdated(kernoId) }
        function onSourcesChanged() { root.notifySourcesChanged() }
        function onGroupsUpdated() { root.notifyGroupsChanged() }
        function onMetadataUpdated(isKey, id) { root.notifyMetadataUpdated(isKey, id) }
        function onAnswerChanged(sourceId, questionId) { root.notifyStructuredQuestionChanged(questionId, sourceId) }
        function onQuestionsChanged() { root.notifyQuestionsChanged() }
        function onMemoSaved(memo) { root.notifyMemoAdded(memo.memoId) }
        function onNewSourceAdded(sourceId) { root.notifyNewSourceAdded(sourceId) }
        function onNewKernoAdded(kernoId) { root.showPreferencesDialogForKerno = kernoId }
        function onCanMutateChanged() { root.canMutate = krnFile.canMutate }

        function onIsOpenedChanged() {
            undoManager.clearStack()
            root.switchToDefaultView()
            root.__openedMemoId = -1
        }

        function onFileClosed() {
            root.reopen = undefined
            root.hasFileOpen = false
            root.raiseOpenDialog(true)
        }

        function onFileOpened() {
            root.hasFileOpen = true
            root.canMutate = krnFile.canMutate
            root.raiseOpenDialog(false)
        }

        function onConnected() {
            root.region = appHelper.region
            root.reconnect = true
            root.connected = true
        }

        function onDisconnected() {
            root.reconnect = true
            root.connected = false
        }

        function onClosedDueToAnotherSession() {
            root.reconnect = false
            root.connected = false
        }
    }
}
