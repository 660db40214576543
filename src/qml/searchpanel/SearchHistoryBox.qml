import QtQuick 2.15
import "../Components"

// The last searches behind an arrow.
ChoiceArrow {
    id: root

    property var entries: []

    signal restoreRequested(var data)

    model: entries.map(function(entry) { return entry.text })
    enabled: count > 0
    tooltip: qsTr("Search History")

    onChosen: {
        if (entries[index])
            restoreRequested(entries[index].data)
    }
}
