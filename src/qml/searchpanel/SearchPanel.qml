import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "SearchHistory.js" as History

// What to search for and where. It slides over the canvas, and folds away to a strip.
FocusScope {
    id: root

    property var selectedSynonyms: _synonyms.selectedSynonyms
    property int resultsCount: 0
    property bool searching: false
    // Two thirds of where the free space beside the dock button begins, as long as that button has its text.
    readonly property real implicitMinimizedWidth: (_buttons.x + _dock.expandedWidth + _buttons.spacing) * 2 / 3
    property string __previousSearchTerm: ""
    property var __historyModel: []
    property var __synonymsToRestore: null

    function focusTerm() {
        _term.forceActiveFocus()
        _term.selectAll()
    }

    function doSearch() {
        var term = _term.text.trim()
        if (term === "")
            return
        __previousSearchTerm = _term.text
        var query = _criteria.serialize()
        __historyModel = History.added(__historyModel, History.entry({
            term: term, query: query, selectedSynonyms: _synonyms.selectedSynonyms, synonyms: _useSynonyms.checked,
            similarWords: _endings.checked, wholeWordsOnly: _wholeWords.checked, all: _scope.checked,
            criteriaOperator: _criteria.andOperator
        }, _codedOnly))
        appHelper.search(term, _scope.checked ? 0 : CentralManager.currentSourceId, _wholeWords.checked,
                         _endings.checked, _codedOnly.checked, _synonyms.selectedSynonyms, query,
                         _criteria.andOperator)
    }

    function restore(search) {
        __previousSearchTerm = ""
        __synonymsToRestore = search.term
        _synonyms.selectedSynonyms = search.selectedSynonyms
        _useSynonyms.checked = search.synonyms
        _endings.checked = search.similarWords
        _wholeWords.checked = search.wholeWordsOnly
        _codedOnly.checked = !!search.codedTextOnly
        _scope.checked = search.all
        _criteria.restore(search.query)
        _criteria.andOperator = search.criteriaOperator
        _term.text = search.term
        _synonymsDelay.restart()
    }

    function updateSynonyms() {
        _synonymsDelay.stop()
        var word = _term.text.trim()
        var restored = __synonymsToRestore !== null && __synonymsToRestore === _term.text
        __synonymsToRestore = null
        if (!_useSynonyms.checked || !restored)
            _synonyms.selectedSynonyms = []
        var wanted = _useSynonyms.checked && word !== "" && word.indexOf(" ") < 0
        _synonyms.synonyms = wanted ? appHelper.synonyms(word) : []
    }

    Connections {
        target: appHelper
        function onSearchStarted() { root.searching = true }
        function onSearchFinished() {
            root.searching = false
            root.resultsCount = appHelper.searchResults.count
        }
    }
    Connections {
        target: CentralManager
        function onHasFileOpenChanged() { root.resultsCount = 0 }
    }

    Rectangle {
        anchors.fill: parent
        radius: Units.dp(8)
        color: ApplicationStyle.dialog_background_color
        border { width: 1; color: ApplicationStyle.border_color }

        // What is behind gets no clicks.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: wheel.accepted = true
        }
    }

    ColumnLayout {
        anchors { fill: parent; margins: Units.dp(12) }
        spacing: Units.dp(8)
        enabled: !root.searching

        // Folded away, the strip shows the dock button alone.
        ColumnLayout {
            spacing: Units.dp(8)
            opacity: CentralManager.searchPanelMinimized ? 0 : 1
            enabled: !CentralManager.searchPanelMinimized

            RowLayout {
                spacing: Units.dp(8)

                IconButton {
                    id: _scope
                    objectName: "searchScope"
                    icon: checked ? "all" : "current"
                    pressedLook: false
                    iconSize: Units.dp(30)
                    implicitWidth: Units.dp(36)
                    implicitHeight: Units.dp(36)
                    checkable: true
                    checked: true
                    tooltip: _scopeLabel.text
                    onClicked: {
                        if (root.__previousSearchTerm !== "" && _term.text === root.__previousSearchTerm)
                            root.doSearch()
                    }
                }
                DialogLabel {
                    id: _scopeLabel
                    Layout.fillWidth: true
                    text: qsTr("Toggle search scope - current or all sources.")
                    wrapMode: Text.WordWrap
                    font.pixelSize: ApplicationStyle.label_font_size
                }
            }

            RowLayout {
                spacing: Units.dp(4)

                StyledTextField {
                    id: _term
                    objectName: "searchTerm"
                    Layout.fillWidth: true
                    focus: true
                    placeholderText: qsTr("Enter search term...")
                    Accessible.name: qsTr("Search term")
                    onTextChanged: {
                        if (text === "")
                            root.updateSynonyms()
                        else
                            _synonymsDelay.restart()
                    }
                    Keys.onReturnPressed: root.doSearch()
                    Keys.onEnterPressed: root.doSearch()
                }
                SearchHistoryBox {
                    objectName: "searchHistory"
                    entries: root.__historyModel
                    onRestoreRequested: root.restore(data)
                }
            }

            LabelledSwitch {
                id: _wholeWords
                objectName: "wholeWords"
                Layout.fillWidth: true
                text: qsTr("Whole words only.")
                onClicked: root.__previousSearchTerm = ""
            }
            LabelledSwitch {
                id: _endings
                objectName: "alternativeEndings"
                Layout.fillWidth: true
                text: qsTr("Include words with alternative endings (-ed, -ing, etc).")
                onClicked: root.__previousSearchTerm = ""
            }
            LabelledSwitch {
                id: _codedOnly
                objectName: "codedTextOnly"
                Layout.fillWidth: true
                text: qsTr("Search coded text only.")
                onClicked: root.__previousSearchTerm = ""
            }
            LabelledSwitch {
                id: _useSynonyms
                objectName: "useSynonyms"
                Layout.fillWidth: true
                text: qsTr("Synonyms and similar expressions.")
                onClicked: {
                    root.__previousSearchTerm = ""
                    root.updateSynonyms()
                }
            }

            SynonymsList {
                id: _synonyms
                Layout.fillWidth: true
                Layout.fillHeight: true
                active: _useSynonyms.checked
            }

            SearchCriteria {
                id: _criteria
                Layout.fillWidth: true
                onChanged: root.__previousSearchTerm = ""
            }
        }

        RowLayout {
            id: _buttons
            spacing: Units.dp(8)

            DockButton {
                id: _dock
                objectName: "dockSearchPanel"
                minimized: CentralManager.searchPanelMinimized
                onClicked: {
                    CentralManager.searchPanelMinimized = !CentralManager.searchPanelMinimized
                    CentralManager.showStatusMessage(CentralManager.searchPanelMinimized
                                                     ? qsTr("Minimise the Search Panel.")
                                                     : qsTr("Expand the Search Panel."), 5000)
                }
            }
            Item { Layout.fillWidth: true }
            StyledButton {
                objectName: "startSearch"
                primary: true
                text: qsTr("Search")
                onClicked: root.doSearch()
            }
            PlainText {
                objectName: "searchResultsCount"
                Layout.minimumWidth: Units.dp(36)
                text: root.resultsCount
                horizontalAlignment: Text.AlignRight
                color: ApplicationStyle.dialog_text_color_alternative
                font.pixelSize: ApplicationStyle.dialog_text_font_size
            }
        }
    }

    Timer {
        id: _synonymsDelay
        interval: 500
        onTriggered: root.updateSynonyms()
    }

    SearchWait {
        anchors.fill: parent
        visible: root.searching && krnFile.waitsForTexts
    }
}
