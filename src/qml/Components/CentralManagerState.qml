import QtQuick 2.15
import Kernova 1.4
import "../Utils.js" as Utils

// What the screens share: every property and signal of CentralManager, without its reactions.
Item {
    id: shared

    // The session
    property bool darkTheme: true
    property bool showLogin: true
    property bool cloud: true
    property bool connected: false
    property bool reconnect: true
    property var reopen: undefined
    property bool canMutate: false
    property date disconnectedAt
    property string region: ""
    property string currentAuthor: ""

    // The project
    property int currentSourceId: -1
    property var currentProject: krnFile.currentProject
    property bool hasFileOpen: krnFile.isOpened
    property bool isUserProjectOwner: krnFile.isOwner
    property int connectedUserCount: krnFile.connectedUserCount
    readonly property bool singleQuestionMode: krnFile.singleQuestionMode
    property int totalNumberOfHighlights: 0
    property int maxNumberOfHighlights: 0

    // Dialogs
    property int showImportDialog: 0
    property bool showGeneralPreferencesDialog: false
    property bool showGroupEditor: false
    property int showPreferencesDialogForKerno: -1
    property bool showMetadataEditor: false
    property var showAnswerEditor: null
    property bool showEditQuestionsDialog: false
    property int showExportDOCXDialog: 0
    property bool showOpenFileDialog: false
    property bool showCloudOpenFileDialog: false
    // The open project closes for another to follow: nobody needs to choose one.
    property bool switchingProject: false
    property int showInlineMetadataKeyValueEditor: 0
    property bool showAboutDialog: false
    property bool showKernoShortcutKeyEditorDialog: false
    property bool showIntroSlider: false
    property int showMergeDialogForKernoId: -1
    property int showGroupsDialogForKernoId: -1
    property bool showCSVImportDialog: false
    property int saveAsRemote: 0
    property bool showMergeProjectsDialog: false
    property bool showExportQDPXDialog: false
    property var promptDialogData: null
    // The passage for "Code with...": start, length, questionId and sourceId, or null.
    property var passageToCode: null
    property bool showKeyboardSheet: false
    property int overlayCount: 0
    property string reportOutputFolder: ""
    property var reportCriteria: null
    property string wordCloudOutputFolder: ""

    // Views and panels
    property int showHierarchyViewForKerno: -1
    property int showOverlapViewForKernoId: 0
    readonly property bool showingOverlapOrHierarchy: showOverlapViewForKernoId > 0 || showHierarchyViewForKerno > 0
    property int parentForNew: -1
    property bool showMetadataForKerno: false
    property bool showMetadataPanel: false
    property bool showSearchPanel: false
    property bool searchPanelMinimized: false
    property bool showMetadataOverviewPanel: false
    property bool showQueryScreen: false
    property bool twoPaneQuery: false
    property bool showQueryPanelInQueryScreen: true
    property bool showAsTreeView: false
    property bool showKernoEditBar: false
    property bool showMemosPanel: false
    property bool showChatPanel: false
    property bool newChatMessage: false
    property var kernoIdsForPartialAnswers: []
    property string topRightText: showSearchPanel ? qsTr("Search Results") : ""
    property int currentMemoId: -1
    property bool hasUserSelectedText: false

    // The canvas
    property bool scaleKernosBasedOnAllHighlights: true
    property real canvasBaseScale: 1.0
    property int canvasBaseWidth: 700
    property real canvasAspectRatio: 4 / 3
    readonly property int canvasBaseHeight: Math.floor(canvasBaseWidth / canvasAspectRatio)
    readonly property bool canvasEnabled: !showSearchPanel || searchPanelMinimized
    property bool showNumberOfCodingsInKernos: false
    property bool animationsOn: false
    property bool autoArrangeKernos: false
    property int kernosOrderField: KernoProxyModel.NoSort
    property int kernosOrder: KernovaQML.OrderAscending

    // Text and its columns
    property int highlightsColumnWidth: 55
    property int memoColumnSize: 150
    property int sourceFontSize: 13
    readonly property int leastFontSize: 10
    readonly property int greatestFontSize: 24
    readonly property real lineHeight: _lines.contentHeight / 4

    // Reports
    property bool generateOverlapViews: false
    property bool generateHierarchyViews: false

    readonly property var preferenceKeys: ({
        highlightsColumnWidth: "HighlightsColumn.Width",
        sourceFontSize: "Source.FontSize",
        showNumberOfCodings: "CircleKerno.ShowNumberOfCodings",
        generateOverlapViews: "Report.GenerateOverlapViews",
        generateHierarchyViews: "Report.GenerateHierarchyViews"
    })

    // Notifications
    signal notifyKernosChanged()
    signal notifyNewSourceAdded(int sourceId)
    signal notifyMemoAdded(int memoId)
    signal notifyKernoPropertyChanged(int kernoId)
    signal notifyKernoAdded(int kernoId)
    signal notifyKernoRemoved(int kernoId)
    signal notifyKernoUpdated(int kernoId)
    signal notifyKernoMouseEntered(int kernoId)
    signal notifyKernoMouseExited(int kernoId)
    signal notifyHighlightsCountChanged()
    signal notifySourcesChanged()
    signal notifyCurrentSourceChanged(int sourceId)
    signal notifyStructuredQuestionChanged(int questionId, int sourceId)
    signal notifyQuestionsChanged()
    signal notifyHighlightHovered(int highlightId)
    signal notifyHighlightChanged(int highlightId)
    signal notifyHighlightsChanged(int sourceId, int questionId)
    signal notifyGroupsChanged()
    signal notifyMetadataUpdated(bool isKey, var id)

    // Requests
    signal showStatusMessage(string message, int timeout)
    signal dismissStatusMessage(string message)
    // Unlike the two before, this is shown in the status bar.
    signal noticeRequested(string message, int timeout)
    signal rearrangeInManualSortRequested(int kernoId, real canvasX, real canvasY)
    signal promptDialogAccepted(var value, var data)
    signal promptDialogCancelled(var data)
    signal unhandledMouseClick(var mouse)
    signal showAlert(string title, string message)
    signal setNewUndoStackLock()
    signal removeUndoStackLock()
    signal reportRequested()
    signal actionHoverChanged(bool hovered, string actionText, string actionTooltip)

    TextEdit {
        id: _lines
        visible: false
        text: "a\na\na\na"
        textFormat: TextEdit.PlainText
        font.pointSize: shared.sourceFontSize
    }
}
