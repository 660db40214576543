import QtQuick 2.15
import QtQuick.Controls 1.4
import QtQuick.Layouts 1.15
import Kernova 1.4
import "../../Components"

// The result of one query: its kernos, and the quotes of the one that is chosen.
SplitView {
    id: root

    // Maps with `kerno` and `count`, of the answer's kernos.
    property var result: []
    readonly property QueryResult answer: QueryResult {}
    property int mostHighlightsInAKerno: 0
    property alias kernosListContentY: _kernos.contentY

    orientation: Qt.Horizontal

    function __choose(index) {
        var chosen = index === _kernos.currentRow ? -1 : index
        _kernos.currentRow = chosen
        _quotes.highlights = chosen >= 0 ? answer.highlightsOf(result[chosen].kerno.kernoId) : null
    }

    onResultChanged: {
        _kernos.currentRow = -1
        _quotes.highlights = null
    }

    handleDelegate: Rectangle {
        width: 1
        color: ApplicationStyle.border_color
    }

    QueryKernosList {
        id: _kernos
        width: Units.dp(250)
        Layout.minimumWidth: Units.dp(250)
        Layout.maximumWidth: 400
        result: root.result
        mostHighlightsInAKerno: root.mostHighlightsInAKerno
        onChosen: root.__choose(index)
    }
    QueryQuotes {
        id: _quotes
        Layout.fillWidth: true
    }
}
