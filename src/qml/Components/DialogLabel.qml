import QtQuick 2.15
import "."

PlainText {
    color: ApplicationStyle.dialog_text_color
    font.pixelSize: ApplicationStyle.dialog_text_font_size
    elide: Text.ElideRight
}
