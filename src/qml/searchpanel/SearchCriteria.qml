import QtQuick 2.15
import "../Components"

// "Other Criteria": which sources and coded passages a search is limited to.
Column {
    id: root

    property bool andOperator: true
    readonly property int rowCount: 4

    signal changed()

    spacing: Units.dp(4)

    function serialize() {
        var rows = []
        for (var i = 0; i < rowCount; ++i) {
            var row = _rows.itemAt(i).serialize()
            if (row)
                rows.push(row)
        }
        return rows
    }

    function restore(rows) {
        for (var i = 0; i < rowCount; ++i)
            _rows.itemAt(i).restore(rows[i])
    }

    function refresh() {
        var open = CentralManager.hasFileOpen
        var properties = [qsTr("-"), qsTr("Author"), qsTr("Kerno"), qsTr("Group")].map(function(text) {
            return { text: text, keyId: -1 }
        }).concat(open ? krnFile.metadataKeys().map(function(key) {
            return { text: key.key, keyId: key.keyId }
        }) : [])
        var values = [[{ text: "", value: "" }], __authors(open), __kernos(open), __groups(open)]
        for (var i = 0; i < rowCount; ++i)
            _rows.itemAt(i).refresh(properties, values)
    }

    function __authors(open) {
        return open ? krnFile.answerAuthors().map(function(author) { return { text: author, value: author } }) : []
    }

    function __kernos(open) {
        return open ? krnFile.kernos().map(function(kerno) {
            return { text: "#" + kerno.kernoId + ": " + (kerno.title ? kerno.title : qsTr("Untitled")),
                     value: kerno.kernoId }
        }) : []
    }

    function __groups(open) {
        return open ? krnFile.groups().map(function(group) {
            return { text: group.groupId + ": " + group.title, value: group.groupId }
        }) : []
    }

    Component.onCompleted: refresh()

    // A burst of changes reads the lists once.
    Timer {
        id: _refresh
        interval: 0
        onTriggered: root.refresh()
    }

    Connections {
        target: CentralManager
        function onNotifySourcesChanged() { _refresh.start() }
        function onNotifyKernosChanged() { _refresh.start() }
        function onNotifyGroupsChanged() { _refresh.start() }
        function onHasFileOpenChanged() {
            if (!CentralManager.hasFileOpen)
                root.restore([])
            _refresh.start()
        }
    }
    Connections {
        target: krnFile.getGroupModel()
        ignoreUnknownSignals: true
        function onModelUpdated() { _refresh.start() }
    }
    Connections {
        target: krnFile.getSourceMetadataKeyModel()
        ignoreUnknownSignals: true
        function onModelUpdated() { _refresh.start() }
    }

    Item {
        width: parent.width
        height: Units.dp(26)

        IconButton {
            id: _clear
            objectName: "clearCriteria"
            anchors.verticalCenter: parent.verticalCenter
            icon: "delete"
            iconSize: Units.dp(18)
            tooltip: qsTr("Clear Criteria")
            onClicked: {
                root.restore([])
                root.changed()
            }
        }
        PlainText {
            anchors { left: _clear.right; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
            text: qsTr("Other Criteria")
            color: ApplicationStyle.orange_text_color
            font { pixelSize: ApplicationStyle.label_font_size; capitalization: Font.AllUppercase; bold: true }
        }
        Clickable {
            objectName: "criteriaOperator"
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            width: _junction.width + Units.dp(8)
            height: parent.height
            text: root.andOperator ? qsTr("AND") : qsTr("OR")
            onClicked: {
                root.andOperator = !root.andOperator
                root.changed()
            }

            PlainText {
                id: _junction
                anchors.centerIn: parent
                text: parent.text
                color: ApplicationStyle.dialog_text_color_alternative
                font { pixelSize: ApplicationStyle.label_font_size; bold: true; underline: parent.hovered }
            }
        }
    }

    Repeater {
        id: _rows
        model: root.rowCount
        SearchCriterionRow {
            width: root.width
            onChanged: root.changed()
        }
    }
}
