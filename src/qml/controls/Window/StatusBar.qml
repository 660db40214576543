import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// The strip along the bottom of the canvas.
Rectangle {
    id: root

    property string permanentMessage
    property string textRight
    property alias zoom: _zoom.value
    property bool sliderShown: true

    height: Units.dp(34)
    color: ApplicationStyle.bar_background_color

    function showMessage(message, timeout) {
        permanentMessage = message
        _messageTimer.stop()
        if (timeout > 0) {
            _messageTimer.interval = timeout
            _messageTimer.start()
        }
    }

    function dismissMessage(message) {
        if (permanentMessage === message)
            permanentMessage = ""
    }

    Connections {
        target: krnFile
        function onIsOpenedChanged() { _filter.text = "" }
    }

    Connections {
        target: CentralManager
        function onNoticeRequested(message, timeout) { root.showMessage(message, timeout) }
    }

    Timer {
        id: _messageTimer
        onTriggered: root.permanentMessage = ""
    }

    RowLayout {
        anchors { fill: parent; leftMargin: ApplicationStyle.default_margin; rightMargin: ApplicationStyle.default_margin }
        spacing: Units.dp(8)

        IconButton {
            objectName: "chatToggle"
            icon: CentralManager.connectedUserCount <= 1 ? "chat_light"
                : _blink.running && _blink.on ? "chat_notification" : "chat_dark"
            themed: false
            enabled: CentralManager.hasFileOpen
            checked: CentralManager.showChatPanel
            pressedLook: false
            tooltip: qsTr("Toggle the chat.")
            onClicked: CentralManager.showChatPanel = !CentralManager.showChatPanel

            Timer {
                id: _blink

                property bool on: false

                interval: 750
                repeat: true
                running: CentralManager.newChatMessage && !CentralManager.showChatPanel
                onTriggered: on = !on
                onRunningChanged: on = running
            }
        }
        StyledTextField {
            id: _filter
            Accessible.name: qsTr("Filter kernos")
            objectName: "kernoNameFilter"
            visible: !CentralManager.showQueryScreen && !CentralManager.showingOverlapOrHierarchy
            Layout.preferredWidth: Units.dp(160)
            implicitHeight: Units.dp(24)
            font.pixelSize: height - Units.dp(8)
            placeholderText: qsTr("Filter kernos...")
            onTextChanged: krnFile.filterKernosByName(text)
        }
        IconButton {
            visible: _filter.visible
            icon: "search"
            iconSize: Units.dp(18)
            tooltip: qsTr("Search Kernos by Name")
            onClicked: krnFile.filterKernosByName(_filter.text)
        }

        PlainText {
            Layout.fillWidth: true
            text: root.permanentMessage
            elide: Text.ElideRight
            color: ApplicationStyle.default_text_color
            font.pixelSize: ApplicationStyle.label_font_size
        }

        PlainText {
            objectName: "textProgress"
            visible: CentralManager.hasFileOpen && !krnFile.allTextsHere
            text: krnFile.textsFailed > 0
                  ? qsTr("Loading texts: %1 of %2, %3 failed").arg(krnFile.textsHere).arg(krnFile.textsExpected)
                                                             .arg(krnFile.textsFailed)
                  : qsTr("Loading texts: %1 of %2").arg(krnFile.textsHere).arg(krnFile.textsExpected)
            color: ApplicationStyle.default_text_color
            font.pixelSize: ApplicationStyle.label_font_size
        }
        IconButton {
            objectName: "cancelTextWait"
            visible: krnFile.waitsForTexts
            icon: "close"
            iconSize: Units.dp(18)
            tooltip: qsTr("Stop Waiting for the Texts")
            onClicked: krnFile.cancelTextWait()
        }

        PlainText {
            visible: _zoom.visible
            text: qsTr("Zoom:")
            color: ApplicationStyle.default_text_color
            font.pixelSize: ApplicationStyle.label_font_size
        }
        StyledSlider {
            id: _zoom
            Accessible.name: qsTr("Zoom")
            objectName: "zoom"
            // The hierarchy view is enlarged as the canvas is; it can be opened from the tree, too.
            visible: root.sliderShown && CentralManager.showOverlapViewForKernoId < 1
                     && (!CentralManager.showAsTreeView || CentralManager.showHierarchyViewForKerno > 0)
            Layout.preferredWidth: Units.dp(80)
            minimumValue: 1.0
            maximumValue: 2.5
            value: 1.0
        }
        PlainText {
            visible: text !== ""
            text: root.textRight
            color: ApplicationStyle.default_text_color
            font.pixelSize: ApplicationStyle.label_font_size
        }
    }
}
