pragma Singleton
import QtQuick 2.15
import Qt.labs.settings 1.0
import "Autopositions.js" as Autopositions
import "../Utils.js" as Utils

// The state that all screens share, and how it follows the project. Screens never call each other: they set
// properties here, and listen to properties and signals.
CentralManagerState {
    id: root

    // A link that falls this soon after a project was opened reopens it.
    readonly property int __reopenWindow: 60000
    readonly property int __noticeTime: 5000
    property int __openedMemoId: -1
    property int __selections: 0

    Settings {
        property alias darkTheme: root.darkTheme
    }

    function switchToDefaultView() {
        showMetadataPanel = false
        showSearchPanel = false
        showMetadataOverviewPanel = false
        showQueryScreen = false
        showOverlapViewForKernoId = -1
        showHierarchyViewForKerno = -1
    }

    function openProject(project, password, isNew, singleQuestion, ignoreLock) {
        var opened = krnFile.openProject(project, isNew, password, singleQuestion, ignoreLock)
        if (opened)
            __readPreferences()
        reopen = {
            project: project, password: password, isNew: isNew, singleQuestion: singleQuestion,
            ignoreLock: ignoreLock, timestamp: new Date()
        }
        return opened
    }

    function __readPreferences() {
        highlightsColumnWidth = krnFile.getPreference(preferenceKeys.highlightsColumnWidth, highlightsColumnWidth)
        sourceFontSize = krnFile.getPreference(preferenceKeys.sourceFontSize, sourceFontSize)
        showNumberOfCodingsInKernos = __isTrue(
            krnFile.getPreference(preferenceKeys.showNumberOfCodings, showNumberOfCodingsInKernos))
        generateOverlapViews = String(krnFile.getPreference(preferenceKeys.generateOverlapViews, "")) === "1"
        generateHierarchyViews = String(krnFile.getPreference(preferenceKeys.generateHierarchyViews, "")) === "1"
    }

    // A stored flag comes back as a boolean, a number or their text.
    function __isTrue(value) {
        return value === true || String(value) === "true" || Number(value) > 0
    }

    function kernoScaleHighlightFactor(kernoId) {
        if (totalNumberOfHighlights === 0 || maxNumberOfHighlights === 0)
            return 0.7
        var count = scaleKernosBasedOnAllHighlights
                ? krnFile.totalHighlightsCountByKernoId(kernoId)
                : krnFile.totalHighlightsCountByKernoIdAndSourceId(kernoId, currentSourceId)
        return 0.7 + count / maxNumberOfHighlights * 0.8
    }

    function getAutoposition(index, totalCount) {
        return Autopositions.position(index, totalCount, canvasBaseWidth, canvasBaseHeight)
    }

    function setKernoAutoArrangeMode(autoArrange, orderField, order) {
        kernosOrderField = orderField
        autoArrangeKernos = autoArrange
    }

    function onButtonHoverChanged(button) {
        actionHoverChanged(button.hovered, button.text ? button.text : "", button.tooltip ? button.tooltip : "")
    }

    // Tells the person in the status bar why something isn't done.
    function tell(message) {
        showStatusMessage(message, __noticeTime)
        noticeRequested(message, __noticeTime)
    }

    // `passage` holds start, length, questionId and sourceId. A kerno without a title is named in its dialog.
    function codeIntoNewKerno(passage, title) {
        if (!canMutate)
            return
        var kerno = instantiator.kerno(true)
        if (title)
            kerno.title = title
        var highlight = Utils.fillPassage(instantiator.highlight(), passage)
        highlight.kernoId = kerno.kernoId
        var position = appHelper.calculateNewKernoPosition(canvasBaseWidth, canvasBaseHeight)
        kerno.x = position.x
        kerno.y = position.y
        undoManager.addHighlightToNewKerno(highlight, kerno)
    }

    // A text's selection has come or gone. One of them is enough for the screens.
    function countSelection(selected) {
        __selections += selected ? 1 : -1
        if (selected && currentMemoId === -1)
            hasUserSelectedText = true
        else if (__selections === 0)
            hasUserSelectedText = false
    }

    // Raises the open dialog of the current mode, or lowers it.
    function raiseOpenDialog(raised) {
        if (cloud)
            showCloudOpenFileDialog = raised
        else
            showOpenFileDialog = raised
    }

    // Makes the source texts larger by that many steps, or smaller.
    function zoomText(steps) {
        sourceFontSize = Math.max(leastFontSize, Math.min(sourceFontSize + steps, greatestFontSize))
        _fontSizeTimer.restart()
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

    // A turn of the wheel is many steps; the last is kept.
    Timer {
        id: _fontSizeTimer
        interval: 500
        onTriggered: {
            if (krnFile.isOpened && root.canMutate)
                krnFile.savePreference(root.preferenceKeys.sourceFontSize, root.sourceFontSize)
        }
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
