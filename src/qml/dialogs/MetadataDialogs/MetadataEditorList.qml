import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import "../../Components"

// One of the two lists of the editor, with the button that adds to it.
ColumnLayout {
    id: root

    property string heading
    property string addText
    property bool addVisible: true
    property string emptyText
    property alias model: _list.model
    property alias delegate: _list.delegate

    signal addRequested()

    spacing: Units.dp(6)

    RowLayout {
        Layout.preferredHeight: Units.dp(34)
        spacing: Units.dp(6)

        DialogLabel {
            Layout.fillWidth: true
            text: root.heading
            font.bold: true
        }
        StyledButton {
            visible: root.addVisible
            enabled: CentralManager.canMutate
            text: root.addText
            onClicked: root.addRequested()
        }
    }

    Rectangle {
        Layout.fillWidth: true
        Layout.fillHeight: true
        radius: Units.dp(4)
        color: ApplicationStyle.textfield_background_color
        border { width: 1; color: ApplicationStyle.border_color }

        StyledScrollView {
            anchors { fill: parent; margins: 1 }
            horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

            ListView {
                id: _list
                clip: true
                boundsBehavior: Flickable.StopAtBounds
            }
        }
        PlainText {
            anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
            anchors.margins: ApplicationStyle.default_margin
            visible: _list.count === 0
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: root.emptyText
            color: ApplicationStyle.dialog_text_color_alternative
            font.pixelSize: ApplicationStyle.dialog_text_font_size_small
        }
    }
}
