import QtQuick 2.15
import "../../Components"

// What the rows of a query can be chosen from, read each time the query screen is entered.
QtObject {
    id: root

    property var keys: []
    property var highlightsAuthorsModel: []
    property var kernosAuthorsModel: []
    property var groupsModel: []
    property var sourcesModel: []

    signal aboutToRefresh()
    signal refreshed()

    function refresh() {
        aboutToRefresh()
        keys = krnFile.metadataKeys()
        highlightsAuthorsModel = __texts(krnFile.highlightsAuthors())
        kernosAuthorsModel = __texts(krnFile.kernosAuthors())
        groupsModel = krnFile.groups().map(function(group) {
            return { text: group.groupId + ": " + group.title, value: group.groupId }
        })
        sourcesModel = krnFile.sources().map(function(source) {
            return { text: source.sourceId + ": " + source.title, value: source.sourceId }
        })
        refreshed()
    }

    function valuesOf(keyId) {
        return keyId > 0 ? __texts(krnFile.metadataValues(keyId).map(function(item) { return item.value })) : []
    }

    function __texts(list) {
        return list.map(function(text) { return { text: String(text), value: text } })
    }
}
