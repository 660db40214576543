import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// What an import could not take over, by kind: `elements` has maps with `kind` and `count`.
ColumnLayout {
    id: root

    property var elements: []

    spacing: ApplicationStyle.default_margin

    DialogLabel {
        Layout.fillWidth: true
        text: qsTr("The project is imported. These parts of the archive could not be taken over:")
        wrapMode: Text.WordWrap
    }
    FieldFrame {
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(Units.dp(220), _list.contentHeight + 2 * ApplicationStyle.default_margin)
        color: ApplicationStyle.list_background_color
        focused: _list.activeFocus

        StyledScrollView {
            anchors.fill: parent
            anchors.margins: ApplicationStyle.default_margin

            ListView {
                id: _list
                objectName: "skippedElements"
                model: root.elements
                clip: true
                boundsBehavior: Flickable.StopAtBounds
                activeFocusOnTab: true
                Accessible.role: Accessible.List
                Accessible.name: qsTr("What could not be taken over")

                delegate: Item {
                    width: ListView.view.width
                    height: Units.dp(24)
                    Accessible.role: Accessible.ListItem
                    Accessible.name: _kind.text + ": " + _count.text

                    PlainText {
                        id: _kind
                        anchors { left: parent.left; right: _count.left; verticalCenter: parent.verticalCenter }
                        text: modelData.kind
                        elide: Text.ElideRight
                        color: ApplicationStyle.dialog_text_color_alternative
                        font.pixelSize: ApplicationStyle.label_font_size
                    }
                    PlainText {
                        id: _count
                        anchors { right: parent.right; rightMargin: ApplicationStyle.default_margin }
                        anchors.verticalCenter: parent.verticalCenter
                        text: modelData.count
                        color: ApplicationStyle.dialog_text_color_alternative
                        font.pixelSize: ApplicationStyle.label_font_size
                    }
                }
            }
        }
    }
}
