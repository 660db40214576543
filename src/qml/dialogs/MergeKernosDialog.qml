import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../Components"
import "../Utils.js" as Utils

// Joins one kerno with another.
DialogPanel {
    id: root

    property int kernoId: -1
    property var kerno: null
    property var candidates: []
    readonly property var __chosen: candidates.length > _choice.currentIndex ? candidates[_choice.currentIndex] : null

    heading: qsTr("Merge Kernos: ")
    headingTitle: kerno ? Utils.stringIfEmpty(kerno.title, qsTr("Untitled")) : ""
    implicitWidth: Units.dp(560)

    on__ChosenChanged: {
        if (__chosen)
            _name.text = qsTr("%1 (merged)").arg(__chosen.title)
    }
    Component.onCompleted: {
        kernoId = CentralManager.showMergeDialogForKernoId
        kerno = krnFile.kerno(kernoId)
        candidates = Utils.sortBy(krnFile.kernos([kernoId]), function(other) { return other.title.toLowerCase() })
    }

    Keys.onEscapePressed: dialogBase.close()

    function merge() {
        if (!__chosen)
            return
        undoManager.mergeKernos(kernoId, __chosen.kernoId, _name.text.trim())
        dialogBase.close()
    }

    GridLayout {
        columns: 2
        columnSpacing: ApplicationStyle.default_dialog_margin
        rowSpacing: ApplicationStyle.default_margin

        DialogLabel { text: qsTr("Merge into:") }
        RowLayout {
            spacing: ApplicationStyle.default_margin

            Rectangle {
                Layout.preferredWidth: Units.dp(26)
                Layout.preferredHeight: Units.dp(26)
                radius: width / 2
                visible: !!root.__chosen
                color: root.__chosen ? root.__chosen.color : "white"
                border { width: 1; color: Qt.darker(color, 2) }
            }
            ArrowComboBox {
                id: _choice
                Accessible.name: qsTr("Merge into")
                Layout.fillWidth: true
                model: root.candidates.map(function(other) {
                    return Utils.stringIfEmpty(other.title, qsTr("Untitled"))
                })
                entryColors: root.candidates.map(function(other) { return other.color })
            }
        }

        DialogLabel { text: qsTr("Merged Kerno Name:") }
        DialogTextField {
            id: _name
            Accessible.name: qsTr("Merged Kerno Name")
            Layout.fillWidth: true
            focus: true
            onAccepted: root.merge()
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.dialogBase.close() }
        StyledButton {
            primary: true
            enabled: CentralManager.canMutate && !!root.__chosen
            text: qsTr("OK")
            onClicked: root.merge()
        }
    }
}
