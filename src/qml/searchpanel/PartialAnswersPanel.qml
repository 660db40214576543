import QtQuick 2.15

// The passages that a view of kernos shows.
SearchResultsPanelBase {
    id: root

    property alias partialAnswers: root.results

    noResultsMessage: qsTr("No Quotes to Display")
    noDataMessage: qsTr("No Quotes to Display")
    textOf: function(passage) { return passage.answer }
    offsetOf: function(passage) { return passage.start !== undefined ? passage.start : passage.offset }
}
