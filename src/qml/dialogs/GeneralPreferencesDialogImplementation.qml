import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../Components"

// How sources and reports look: preferences of the project, and the theme of this computer.
DialogPanel {
    id: root

    readonly property var __stripeColors: ["#DA6D06", "#114EA6", "#67D100", "#DA0097", "#CED300"]

    heading: qsTr("General Preferences")
    implicitWidth: Units.dp(780)

    Keys.onEscapePressed: dialogBase.close()
    Keys.onReturnPressed: save()
    Keys.onEnterPressed: save()

    function save() {
        var keys = CentralManager.preferenceKeys
        // To a reader they apply until the project closes.
        if (CentralManager.canMutate) {
            krnFile.savePreference(keys.sourceFontSize, _fontSize.value)
            krnFile.savePreference(keys.highlightsColumnWidth, _columnWidth.value)
            krnFile.savePreference(keys.generateOverlapViews, _overlapViews.checked)
            krnFile.savePreference(keys.generateHierarchyViews, _hierarchyViews.checked)
        }
        CentralManager.sourceFontSize = _fontSize.value
        CentralManager.highlightsColumnWidth = _columnWidth.value
        CentralManager.memoColumnSize = _memoWidth.value
        CentralManager.generateOverlapViews = _overlapViews.checked
        CentralManager.generateHierarchyViews = _hierarchyViews.checked
        CentralManager.darkTheme = _dark.checked
        dialogBase.close()
    }

    GridLayout {
        columns: 3
        columnSpacing: ApplicationStyle.default_dialog_margin
        rowSpacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Source Font Size:") }
        StyledSlider {
            id: _fontSize
            Accessible.name: qsTr("Source Font Size")
            Layout.preferredWidth: Units.dp(150)
            focus: true
            minimumValue: CentralManager.leastFontSize
            maximumValue: CentralManager.greatestFontSize
            stepSize: 1
            value: CentralManager.sourceFontSize
        }
        PlainText {
            Layout.fillWidth: true
            text: qsTr("I am a preview text!")
            elide: Text.ElideRight
            color: ApplicationStyle.dialog_text_color_alternative
            font { family: ApplicationStyle.source_text_font_family; pointSize: Math.max(_fontSize.minimumValue, _fontSize.value, 1) }
        }

        DialogLabel { text: qsTr("Width of the Highlights Column:") }
        StyledSlider {
            id: _columnWidth
            Accessible.name: qsTr("Width of the Highlights Column")
            Layout.preferredWidth: Units.dp(150)
            minimumValue: 30
            maximumValue: 150
            stepSize: 1
            value: CentralManager.highlightsColumnWidth
        }
        Row {
            Layout.fillWidth: true
            Repeater {
                model: root.__stripeColors
                Rectangle {
                    width: _columnWidth.value / root.__stripeColors.length
                    height: Units.dp(30)
                    color: modelData
                }
            }
        }

        DialogLabel { text: qsTr("Width of the Memos Column:") }
        StyledSlider {
            id: _memoWidth
            Accessible.name: qsTr("Width of the Memos Column")
            Layout.preferredWidth: Units.dp(150)
            minimumValue: 100
            maximumValue: 300
            stepSize: 10
            value: CentralManager.memoColumnSize
        }
        DialogLabel { text: _memoWidth.value; color: ApplicationStyle.dialog_text_color_alternative }

        DialogLabel {
            Layout.columnSpan: 3
            Layout.topMargin: ApplicationStyle.default_margin
            text: qsTr("Report generation preferences:")
            font.bold: true
        }
        DialogLabel { text: qsTr("Generate overlap views") }
        Switch {
            id: _overlapViews
            Accessible.name: qsTr("Generate overlap views")
            Layout.columnSpan: 2
            style: ApplicationStyle.switch_style
            checked: CentralManager.generateOverlapViews
        }
        DialogLabel { text: qsTr("Generate hierarchy views") }
        Switch {
            id: _hierarchyViews
            Accessible.name: qsTr("Generate hierarchy views")
            Layout.columnSpan: 2
            style: ApplicationStyle.switch_style
            checked: CentralManager.generateHierarchyViews
        }

        DialogLabel {
            Layout.topMargin: ApplicationStyle.default_margin
            text: qsTr("Colour theme:")
        }
        RowLayout {
            Layout.columnSpan: 2
            Layout.topMargin: ApplicationStyle.default_margin
            spacing: ApplicationStyle.default_margin

            Switch {
                id: _dark
                Accessible.name: qsTr("Dark colour theme")
                style: ApplicationStyle.switch_style
                checked: CentralManager.darkTheme
            }
            DialogLabel {
                text: _dark.checked ? qsTr("Dark") : qsTr("Light")
                color: ApplicationStyle.dialog_text_color_alternative
            }
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.dialogBase.close() }
        StyledButton { primary: true; text: qsTr("Save"); onClicked: root.save() }
    }
}
