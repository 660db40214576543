import QtQuick 2.15
import "../Components"

// What to do when there is no text to show.
PlainText {
    property bool noSource: true

    text: noSource
          ? qsTr("No Source to Display\n\nYou can create or import a source\nusing the (+) icon in the tab bar.")
          : qsTr("No Questions to Display\n\nEither import new data\n"
                 + " or use the questions editor (top right icon above).")
    leftPadding: Units.dp(25) + CentralManager.highlightsColumnWidth
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    wrapMode: Text.Wrap
    color: ApplicationStyle.source_text_color
    opacity: 0.75
    font.pixelSize: ApplicationStyle.dialog_text_font_size
}
