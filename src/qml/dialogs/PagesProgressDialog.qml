import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import QtQuick.Layouts 1.15
import "../Components"

// How far a report or a word cloud is. `generator` makes what comes before the data; `write` writes the data, shows the
// page and comes back when that is closed.
DialogPanel {
    id: root

    property Item generator
    property var write
    property bool __writing: false
    property bool __cancelled: false

    signal finished()

    heading: qsTr("Generating Report...")
    implicitWidth: Units.dp(550)

    Keys.onEscapePressed: cancel()

    function cancel() {
        if (__cancelled)
            return
        __cancelled = true
        _start.stop()
        if (krnFile.waitsForTexts)
            krnFile.cancelTextWait()
        else if (__writing)
            appHelper.cancelPages()
        else if (generator.step > 0)
            generator.cancel()
        else
            finish(true)
    }

    function finish(cancelled) {
        if (!cancelled) {
            __writing = true
            write()
            __writing = false
        }
        finished()
        dialogBase.close()
    }

    function __begin() {
        // The quotes are cut from all texts.
        if (!krnFile.waitForTexts() || __cancelled)
            finish(true)
        else
            generator.start()
    }

    Connections {
        target: root.generator
        function onProgress(percent, status) {
            _bar.value = percent
            _status.text = status
        }
        function onCompleted(cancelled) { root.finish(cancelled) }
    }

    Connections {
        target: appHelper
        function onPagesProgress(sources, of) {
            _status.text = qsTr("Writing the data: source %1 of %2").arg(sources).arg(of)
        }
    }

    Timer {
        id: _start
        interval: 500
        running: true
        onTriggered: root.__begin()
    }

    DialogLabel { text: qsTr("Progress:") }

    ProgressBar {
        id: _bar
        objectName: "pagesProgress"
        Layout.fillWidth: true
        maximumValue: 100
        Behavior on value { NumberAnimation { duration: 500; easing.type: Easing.Linear } }
        style: ProgressBarStyle {
            background: Rectangle {
                implicitHeight: Units.dp(16)
                radius: Units.dp(4)
                color: ApplicationStyle.textfield_background_color
            }
            progress: Rectangle {
                radius: Units.dp(4)
                color: ApplicationStyle.orrange_button_color
            }
        }
    }

    DialogLabel {
        id: _status
        Layout.fillWidth: true
        elide: Text.ElideRight
        text: krnFile.waitsForTexts ? qsTr("Loading texts: %1 of %2").arg(krnFile.textsHere).arg(krnFile.textsExpected) : " "
        color: ApplicationStyle.dialog_text_color_alternative
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton { focus: true; text: qsTr("Cancel"); enabled: !root.__cancelled; onClicked: root.cancel() }
    }
}
