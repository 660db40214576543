import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// A column of a table, and what it holds.
Item {
    id: root

    property string name
    // Maps with `text` and `value`.
    property var types: []
    property int typeIndex: 0

    signal typeChosen(int type)

    implicitHeight: Units.dp(40)

    RowLayout {
        anchors { fill: parent; leftMargin: Units.dp(10); rightMargin: Units.dp(10) }
        spacing: ApplicationStyle.default_margin

        PlainText {
            Layout.fillWidth: true
            text: root.name
            elide: Text.ElideRight
            // One line, whatever the header holds.
            maximumLineCount: 1
            color: ApplicationStyle.dialog_text_color
            font.pixelSize: ApplicationStyle.dialog_text_font_size_small
        }
        ArrowComboBox {
            objectName: "columnType"
            Layout.preferredWidth: Units.dp(140)
            model: root.types.map(function(type) { return type.text })
            currentIndex: root.typeIndex
            onActivated: root.typeChosen(root.types[index].value)
            Accessible.name: root.name
        }
    }
}
