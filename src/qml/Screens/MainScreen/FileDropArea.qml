import QtQuick 2.15
import "../../Components"
import "../../Utils.js" as Utils

// Takes files from outside as new sources.
DropArea {
    id: root

    readonly property bool accepting: CentralManager.singleQuestionMode && CentralManager.hasFileOpen
                                      && CentralManager.canMutate
    property var files: []

    keys: ["text/uri-list"]
    enabled: accepting

    function importable(urls) {
        return Utils.filter(Utils.map(Array.prototype.slice.call(urls), function(url) { return url.toString() }),
                            function(url) {
            var suffix = url.substring(url.lastIndexOf(".") + 1).toLowerCase()
            return /^file:/.test(url) && appHelper.importSuffixes.indexOf(suffix) >= 0
        })
    }

    onEntered: {
        files = drag.hasUrls ? importable(drag.urls) : []
        drag.accepted = files.length > 0
    }
    onExited: files = []
    onDropped: {
        var urls = files
        files = []
        drop.accept(Qt.CopyAction)
        // Later: the program from which the files come waits for the end of the drop.
        Qt.callLater(function() { appHelper.batchImportQuestions(urls, "", "", true) })
    }

    Rectangle {
        anchors.fill: parent
        visible: root.files.length > 0
        color: "black"
        opacity: 0.5
    }

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * ApplicationStyle.default_dialog_margin, Units.dp(560))
        visible: root.files.length > 0
        spacing: ApplicationStyle.default_margin

        PlainText {
            text: qsTr("Drop to Import Sources")
            color: "white"
            font { pixelSize: ApplicationStyle.dialog_header_font_size; bold: true }
        }

        Repeater {
            model: root.files
            PlainText {
                width: parent.width
                text: "%1. %2".arg(index + 1).arg(Utils.getFileName(Utils.filePathFromUrl(modelData)))
                elide: Text.ElideMiddle
                color: "white"
                font.pixelSize: ApplicationStyle.dialog_text_font_size
            }
        }
    }
}
