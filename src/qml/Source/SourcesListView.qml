import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../Components"

// All sources, to be ordered, filtered and chosen from.
FocusScope {
    id: root

    property Item list: null
    readonly property bool __hasFocus: activeFocus

    // An expression that isn't one, mostly because more of it is to come, leaves the list as it is.
    function __applyFilter() {
        try {
            list.model.filterRegExp = new RegExp(_filter.text, "i")
            _filter.invalid = false
        } catch (error) {
            _filter.invalid = true
        }
    }

    // The list goes when it and its filter field have lost the focus.
    on__HasFocusChanged: {
        if (!__hasFocus)
            list.out = false
    }

    Connections {
        target: root.list
        function onOutChanged() {
            if (root.list.out)
                _view.forceActiveFocus()
        }
    }

    Rectangle {
        anchors.fill: parent
        color: ApplicationStyle.dark ? ApplicationStyle.main_color : "white"
        border { width: 1; color: ApplicationStyle.border_color }
    }

    MouseArea {
        anchors.fill: parent
        onWheel: wheel.accepted = true
    }

    Timer {
        id: _filterTimer
        interval: 500
        onTriggered: root.__applyFilter()
    }

    ColumnLayout {
        anchors { fill: parent; margins: ApplicationStyle.default_margin }
        spacing: ApplicationStyle.default_margin

        DialogLabel {
            text: qsTr("All Sources")
            font.pixelSize: Units.dp(20)
        }

        GridLayout {
            columns: 2
            columnSpacing: ApplicationStyle.default_margin

            DialogLabel { text: qsTr("Order:"); font.pixelSize: ApplicationStyle.dialog_text_font_size_small }
            ArrowComboBox {
                Layout.fillWidth: true
                model: root.list ? root.list.model.getSortModes() : []
                tooltip: qsTr("Change sort order of the sources.")
                Accessible.name: qsTr("Order")
                onCurrentIndexChanged: {
                    if (root.list)
                        root.list.model.sortMode = currentIndex
                }
            }
            DialogLabel { text: qsTr("Filter:"); font.pixelSize: ApplicationStyle.dialog_text_font_size_small }
            StyledTextField {
                id: _filter
                Accessible.name: qsTr("Filter sources by title")
                objectName: "sourceFilter"
                Layout.fillWidth: true
                implicitHeight: Units.dp(30)
                font.pixelSize: ApplicationStyle.dialog_text_font_size_small
                placeholderText: qsTr("Filter sources by title...")
                onTextChanged: _filterTimer.restart()
            }
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            DialogLabel {
                anchors.centerIn: parent
                visible: _view.count === 0
                text: qsTr("No Sources to Display")
                color: ApplicationStyle.dialog_text_color_alternative
            }

            StyledScrollView {
                anchors.fill: parent

                ListView {
                    id: _view
                    objectName: "allSources"
                    clip: true
                    focus: true
                    activeFocusOnTab: true
                    highlightMoveDuration: 0
                    Accessible.role: Accessible.List
                    Accessible.name: qsTr("All Sources")
                    Keys.onReturnPressed: if (currentItem) currentItem.chosen()
                    Keys.onEnterPressed: if (currentItem) currentItem.chosen()
                    Keys.onEscapePressed: root.list.out = false
                    Keys.onDeletePressed: if (currentItem && CentralManager.canMutate) currentItem.removeRequested()
                    boundsBehavior: Flickable.StopAtBounds
                    model: root.list ? root.list.model : null
                    delegate: SourceRow {
                        width: ListView.view.width
                        onChosen: {
                            root.list.switchToSource(model.sourceId)
                            root.list.out = false
                        }
                        onRemoveRequested: root.list.removeRequested(model.sourceId, model.title)
                    }
                }
            }
        }
    }
}
