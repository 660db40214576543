import QtQuick 2.15
import "."

// The grounds behind texts: of the notes when they are shown, of their marks, and of the stripes.
Row {
    Rectangle {
        width: CentralManager.showMemosPanel && !CentralManager.showQueryScreen ? CentralManager.memoColumnSize : 0
        height: parent.height
        color: ApplicationStyle.memo_background_color
    }
    Rectangle {
        width: Units.dp(25)
        height: parent.height
        color: ApplicationStyle.memo_background_color
    }
    Rectangle {
        width: CentralManager.highlightsColumnWidth
        height: parent.height
        color: ApplicationStyle.highlights_bar_color
    }
}
