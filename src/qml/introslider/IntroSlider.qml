import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"
import "../dialogs"

// What a beginner needs to know, step by step over a picture of the window.
FocusScope {
    id: root

    property DialogBase dialogBase
    property int step: 0
    readonly property var steps: [
        { overlay: "import", heading: qsTr("Add Sources"),
          text: qsTr("Click (+) above the text to write a new source, or to import text, Word, RTF and PDF files.") },
        { overlay: "metadata", heading: qsTr("Source Properties"),
          text: qsTr("This tab shows the properties of a source, such as an age or a place. Queries can ask for them.") },
        { overlay: "sources_list", heading: qsTr("Browse Sources"),
          text: qsTr("The list shows all sources, to be sorted, filtered and opened.") },
        { overlay: "add_kerno", heading: qsTr("Add Kernos"),
          text: qsTr("A kerno is a theme of your material. Click (+) for a new one, and drop selected text on a kerno to "
                     + "code it.") },
        { overlay: "kerno", heading: qsTr("Kerno options"),
          text: qsTr("Right-click a kerno to edit, merge, duplicate or delete it, or to see its quotes. "
                     + "Drop a kerno on another to nest it.") },
        { overlay: "search", heading: qsTr("Search"),
          text: qsTr("Search all texts for a word, its endings and its synonyms.") },
        { overlay: "query", heading: qsTr("Explore Data"),
          text: qsTr("A query shows which passages are coded as you ask, and compares two answers.") },
        { overlay: "report", heading: qsTr("Export your data"),
          text: qsTr("The export menu makes reports and word clouds, and writes documents, tables and archives.") },
        { overlay: "home", heading: qsTr("Return to Main View"),
          text: qsTr("Home leads back to the canvas from everywhere.") }
    ]
    readonly property var __step: steps[step]

    width: dialogBase ? dialogBase.width : 0
    height: dialogBase ? dialogBase.height : 0
    focus: true

    function go(to) {
        step = Math.max(0, Math.min(to, steps.length - 1))
    }

    Keys.onEscapePressed: dialogBase.close()
    Keys.onLeftPressed: go(step - 1)
    Keys.onRightPressed: go(step + 1)

    Rectangle {
        anchors.fill: parent
        color: "black"
    }

    ColumnLayout {
        anchors { fill: parent; margins: ApplicationStyle.default_dialog_margin }
        spacing: ApplicationStyle.default_margin

        RowLayout {
            PlainText {
                Layout.fillWidth: true
                text: qsTr("Introduction")
                color: "white"
                font.pixelSize: ApplicationStyle.dialog_header_font_size
            }
            IntroButton { text: qsTr("Close"); onClicked: root.dialogBase.close() }
        }

        Item {
            id: _frame
            Layout.fillWidth: true
            Layout.fillHeight: true

            Image {
                id: _main
                anchors.centerIn: parent
                width: Math.min(_frame.width, _frame.height * 1.5)
                height: width / 1.5
                mipmap: true
                source: "qrc:///qml/images/slides/main.png"

                Image {
                    objectName: "introOverlay"
                    anchors.fill: parent
                    mipmap: true
                    source: "qrc:///qml/images/slides/%1.png".arg(root.__step.overlay)
                }
            }
        }

        PlainText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: root.__step.heading
            color: ApplicationStyle.orrange_button_color
            font { pixelSize: Units.dp(22); bold: true }
        }
        PlainText {
            Layout.fillWidth: true
            Layout.preferredHeight: Units.dp(44)
            horizontalAlignment: Text.AlignHCenter
            text: root.__step.text
            wrapMode: Text.Wrap
            color: "white"
            font.pixelSize: ApplicationStyle.dialog_text_font_size
        }

        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            spacing: Units.dp(6)

            IntroButton {
                text: "<<"
                Accessible.name: qsTr("Previous Step")
                enabled: root.step > 0
                onClicked: root.go(root.step - 1)
            }
            Repeater {
                model: root.steps
                IntroButton {
                    text: index + 1
                    chosen: index === root.step
                    Accessible.name: qsTr("Step %1: %2").arg(index + 1).arg(modelData.heading)
                    onClicked: root.go(index)
                }
            }
            IntroButton {
                text: ">>"
                focus: true
                Accessible.name: qsTr("Next Step")
                enabled: root.step < root.steps.length - 1
                onClicked: root.go(root.step + 1)
            }
        }
    }
}
