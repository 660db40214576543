import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Dialogs 1.3
import QtQuick.Layouts 1.15
import "../../Components"
import "../../Utils.js" as Utils
import ".."

// Makes one source of a file or of the clipboard, with a look at what will be imported.
DialogPanel {
    id: root

    readonly property bool fromClipboard: CentralManager.showImportDialog === 2
    readonly property bool structured: !CentralManager.singleQuestionMode
    // A project of one question has no other way to a single file.
    readonly property bool fileOffered: !fromClipboard || !structured
    property url file
    property var items: []
    property string message
    // A PDF is converted while the screens stay alive.
    property bool reading: false
    property bool closing: false
    readonly property int __longestPreview: 2000

    heading: qsTr("Import Source")
    implicitWidth: Units.dp(720)

    Component.onCompleted: {
        _title.text = qsTr("Source %1").arg(idManager.maxSourceId() + 1)
        if (fromClipboard)
            refresh()
    }

    Keys.onEscapePressed: leave()
    Keys.onReturnPressed: {
        if (_import.enabled)
            importNow()
    }

    function __markersGiven() {
        return !structured || (_questionMarker.text !== "" && _answerMarker.text !== "")
    }

    function leave() {
        closing = true
        if (reading)
            appHelper.cancelReading()
        else
            dialogBase.close()
    }

    function refresh() {
        message = ""
        items = []
        if (!__markersGiven()) {
            message = qsTr("Question and answer markers are required!")
        } else if (file.toString() !== "") {
            // Later: events are handled while a PDF is read, which what brought us here may not expect.
            reading = true
            Qt.callLater(__read)
        } else if (fromClipboard) {
            __take(appHelper.importQuestionsFromClipboard(_questionMarker.text, _answerMarker.text))
        }
    }

    function __read() {
        var found = closing ? [] : appHelper.importQuestions(file, _questionMarker.text, _answerMarker.text)
        reading = false
        if (closing)
            dialogBase.close()
        else
            __take(found)
    }

    function __take(found) {
        items = found
        if (items.length === 0) {
            message = /\.pdf$/i.test(file.toString())
                    ? qsTr("The file has no text to import. A PDF file must contain text, not only pictures of it.")
                    : qsTr("There is no text to import. Please check the file and the markers.")
        }
    }

    function importNow() {
        var title = _title.text.trim()
        message = title === "" ? qsTr("Please provide a source title!") : ""
        if (message === "" && appHelper.saveImportedQuestions(title, items))
            dialogBase.close()
    }

    function __cut(text) {
        return text.length > __longestPreview ? text.substring(0, __longestPreview) + " [...]" : text
    }

    GridLayout {
        columns: 2
        columnSpacing: ApplicationStyle.default_dialog_margin
        rowSpacing: ApplicationStyle.default_margin

        DialogLabel { visible: root.fileOffered; text: qsTr("File:") }
        RowLayout {
            visible: root.fileOffered
            spacing: ApplicationStyle.default_margin

            DialogLabel {
                Layout.fillWidth: true
                text: Utils.getFileName(Utils.filePathFromUrl(root.file))
                elide: Text.ElideMiddle
                color: ApplicationStyle.dialog_text_color_alternative
            }
            StyledButton { enabled: !root.reading; text: qsTr("Select File"); onClicked: _fileDialog.open() }
        }

        DialogLabel { text: qsTr("Source Title:") }
        DialogTextField {
            id: _title
            Accessible.name: qsTr("Source Title")
            Layout.fillWidth: true
            focus: true
        }

        DialogLabel { visible: root.structured; text: qsTr("Question Marker:") }
        DialogTextField {
            id: _questionMarker
            Accessible.name: qsTr("Question Marker")
            Layout.fillWidth: true
            visible: root.structured
            text: "Question:"
        }

        DialogLabel { visible: root.structured; text: qsTr("Answer Marker:") }
        DialogTextField {
            id: _answerMarker
            Accessible.name: qsTr("Answer Marker")
            Layout.fillWidth: true
            visible: root.structured
            text: "Answer:"
        }
    }

    FieldFrame {
        Layout.fillWidth: true
        Layout.preferredHeight: Units.dp(260)

        DialogLabel {
            anchors.centerIn: parent
            visible: root.items.length === 0 && !root.reading
            text: qsTr("No imported data to preview.")
            color: ApplicationStyle.dialog_text_color_alternative
            opacity: 0.7
        }

        BusyIndicator {
            anchors.centerIn: parent
            visible: root.reading
            running: root.reading
        }

        StyledScrollView {
            anchors { fill: parent; margins: 2 }

            ListView {
                model: root.items
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                spacing: ApplicationStyle.default_margin
                delegate: ImportPreviewRow {
                    width: ListView.view.width
                    question: root.structured ? root.__cut(modelData.question.replace(/<\/?[biu]>/g, "").trim()) : ""
                    answer: appHelper.importPreview(modelData.answer, root.__longestPreview)
                }
            }
        }
    }

    DialogLabel {
        Layout.fillWidth: true
        visible: root.message !== ""
        text: root.message
        wrapMode: Text.Wrap
        color: ApplicationStyle.error_text_color
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        spacing: ApplicationStyle.default_margin

        StyledButton { enabled: !root.reading; text: qsTr("Refresh"); onClicked: root.refresh() }
        Item { Layout.fillWidth: true }
        StyledButton { text: qsTr("Cancel"); onClicked: root.leave() }
        StyledButton {
            id: _import
            primary: true
            enabled: CentralManager.canMutate && !root.reading && root.items.length > 0
            text: qsTr("Import")
            onClicked: root.importNow()
        }
    }

    FileDialog {
        id: _fileDialog
        title: qsTr("Import Source")
        folder: shortcuts.documents
        nameFilters: [appHelper.importFilter]
        onAccepted: {
            // A name that stands for no file.
            if (fileUrl.toString() === "")
                return
            root.file = fileUrl
            _title.text = Utils.getFileName(Utils.filePathFromUrl(fileUrl), false)
            root.refresh()
        }
    }
}
