import QtQuick 2.15
import "Autopositions.js" as Autopositions
import "../Utils.js" as Utils

// What screens ask CentralManager to do, and what they ask of it.
CentralManagerState {
    id: root

    readonly property int __noticeTime: 5000
    property int __selections: 0

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

    // Says so when no program opens a page of the web.
    function pageOpened(opened) {
        if (!opened)
            showAlert(qsTr("Web Page"), qsTr("No program on this computer opens web pages."))
    }

    function makeWordCloud() {
        wordCloudOutputFolder = appHelper.createWordCloudFolder()
        if (wordCloudOutputFolder === "")
            showAlert(qsTr("WordCloud Error"), qsTr("A folder for the word cloud could not be made."))
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
}
