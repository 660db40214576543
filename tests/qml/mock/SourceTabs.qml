import QtQuick 2.15

QtObject {
    property var tabs: []
    property int currentSourceId: -1
    property int percentageCoded: 0

    signal sourceRequested(int sourceId)

    function open(sourceId) { sourceRequested(sourceId) }
}
