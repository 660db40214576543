import QtQuick 2.15
import "../../Components"

// A question with its answer, as they will be imported.
Column {
    id: root

    property string question
    property string answer

    padding: Units.dp(8)
    spacing: Units.dp(4)

    PlainText {
        width: root.width - 2 * root.padding
        visible: root.question !== ""
        text: root.question
        wrapMode: Text.Wrap
        color: ApplicationStyle.dialog_text_color
        font { pixelSize: ApplicationStyle.dialog_text_font_size_small; bold: true }
    }
    PlainText {
        width: root.width - 2 * root.padding
        text: root.answer
        wrapMode: Text.Wrap
        color: ApplicationStyle.dialog_text_color_alternative
        font.pixelSize: ApplicationStyle.dialog_text_font_size_small
    }
}
