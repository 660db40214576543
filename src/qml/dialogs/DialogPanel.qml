import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// The frame of a dialog: a heading over the content, on the dialog's background.
FocusScope {
    id: root

    property DialogBase dialogBase
    property string heading
    // What stands behind the heading in italics: a title that a person has given.
    property string headingTitle
    property alias spacing: _layout.spacing
    property alias headerItems: _header.data
    default property alias content: _layout.data

    focus: true
    implicitWidth: Units.dp(560)
    implicitHeight: _layout.implicitHeight + _heading.height + 3 * ApplicationStyle.default_dialog_margin
    width: implicitWidth
    height: implicitHeight

    DialogInnerBackground {
        anchors.fill: parent
        border { width: 1; color: Qt.lighter(ApplicationStyle.dialog_background_color, ApplicationStyle.dark ? 1.5 : 0.85) }
    }

    Row {
        id: _heading
        anchors { top: parent.top; left: parent.left; right: _header.left }
        anchors.margins: ApplicationStyle.default_dialog_margin

        DialogLabel {
            id: _headingText
            width: Math.min(implicitWidth, _heading.width)
            text: root.heading
            font.pixelSize: ApplicationStyle.dialog_header_font_size
        }
        DialogLabel {
            visible: text !== ""
            width: Math.min(implicitWidth, _heading.width - _headingText.width)
            text: root.headingTitle
            font { pixelSize: ApplicationStyle.dialog_header_font_size; italic: true }
        }
    }

    Row {
        id: _header
        anchors { right: parent.right; rightMargin: ApplicationStyle.default_dialog_margin }
        anchors.verticalCenter: _heading.verticalCenter
        spacing: ApplicationStyle.default_margin
    }

    ColumnLayout {
        id: _layout
        anchors { top: _heading.bottom; left: parent.left; right: parent.right; bottom: parent.bottom }
        anchors.margins: ApplicationStyle.default_dialog_margin
        spacing: ApplicationStyle.default_margin
    }
}
