import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../../Components"

// What a column of the sign-in dialog offers.
RowLayout {
    id: root

    property alias title: _title.text
    property alias subtitle: _subtitle.text
    property alias picture: _picture.source

    spacing: ApplicationStyle.default_dialog_margin

    Image {
        id: _picture
        Layout.preferredWidth: Units.dp(56)
        Layout.preferredHeight: Units.dp(56)
        fillMode: Image.PreserveAspectFit
        mipmap: true
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: Units.dp(2)

        DialogLabel {
            id: _title
            font { pixelSize: Units.dp(20); bold: true }
        }
        DialogLabel {
            id: _subtitle
            color: ApplicationStyle.dialog_text_color_alternative
        }
    }
}
