import QtQuick 2.15
import "../../Components"

// One row of a query: a property, how it is compared, a value, and how the row is joined to the next.
Row {
    id: root

    // The lists to choose from, and what is in them.
    property var lookups: null
    property bool isLast: false
    property bool removable: false
    property bool addable: false
    property int level: 0

    readonly property var __types: [
        { code: "MD", shortText: "PR", text: qsTr("Property") },
        { code: "HA", shortText: "HA", text: qsTr("Highlight Author") },
        { code: "QA", shortText: "QA", text: qsTr("Kerno Author") },
        { code: "HD", shortText: "HD", text: qsTr("Highlight Date (yyyy-mm-dd)") },
        { code: "QD", shortText: "QD", text: qsTr("Kerno Date (yyyy-mm-dd)") },
        { code: "GR", shortText: "GR", text: qsTr("Group") },
        { code: "ST", shortText: "ST", text: qsTr("Source Title") }
    ]
    readonly property string __code: __types[Math.max(0, _type.currentIndex)].code
    readonly property bool __isKey: __code === "MD"
    readonly property bool __byId: __code === "GR" || __code === "ST"
    readonly property var __keys: lookups ? lookups.keys : []
    readonly property int __keyId: __isKey && __keys[_property.currentIndex] ? __keys[_property.currentIndex].keyId : -1
    readonly property var __values: !lookups ? []
                                  : __isKey ? lookups.valuesOf(__keyId)
                                  : __code === "HA" ? lookups.highlightsAuthorsModel
                                  : __code === "QA" ? lookups.kernosAuthorsModel
                                  : __code === "GR" ? lookups.groupsModel
                                  : __code === "ST" ? lookups.sourcesModel : []

    // A row keeps what was entered in it when the lists are read anew.
    property var __entered: null

    signal addRequested()
    signal removeRequested()

    spacing: Units.dp(4)

    function serializeQuery() {
        var chosen = __values[_value.currentIndex]
        return {
            level: level,
            property: __isKey ? __keyId : __code,
            propertyName: _property.currentText,
            propertyType: __code,
            operator: _operator.currentText,
            junctionOperator: _junction.currentText,
            value: __byId ? (chosen ? chosen.value : "") : _value.editable ? _value.editText : _value.currentText
        }
    }

    function __placeOf(list, name, value) {
        return list.map(function(entry) { return entry[name] }).indexOf(value)
    }

    function __restore(row) {
        // There were no properties yet.
        if (row.property === -1)
            return
        if (__isKey)
            _property.currentIndex = Math.max(0, __placeOf(__keys, "keyId", row.property))
        _value.currentIndex = Math.max(0, __placeOf(__values, __byId ? "value" : "text", row.value))
        if (_value.editable)
            _value.editText = row.value
    }

    Connections {
        target: root.lookups
        function onAboutToRefresh() { root.__entered = root.serializeQuery() }
        function onRefreshed() { root.__restore(root.__entered) }
    }

    // A member of an inner group or not.
    Item {
        objectName: "levelSelector"
        width: Units.dp(2)
        height: _type.height

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Units.dp(1)
            height: parent.height
            color: "white"
        }
        Clickable {
            anchors { fill: parent; leftMargin: -Units.dp(6); rightMargin: -Units.dp(3) }
            name: root.level === 1 ? qsTr("Leave the inner group") : qsTr("Join the inner group")
            onClicked: root.level = 1 - root.level
        }
    }

    CompactComboBox {
        id: _type
        objectName: "queryType"
        width: Units.dp(44)
        model: root.__types.map(function(type) { return type.text })
        shortTexts: root.__types.map(function(type) { return type.shortText })
        tooltip: currentText
        Accessible.name: qsTr("Kind of criterion")
    }
    ArrowComboBox {
        id: _property
        objectName: "queryProperty"
        width: Math.max(Units.dp(60), root.__flexible * 0.45)
        enabled: root.__isKey
        opacity: enabled ? 1.0 : 0.6
        tooltip: qsTr("Select property...")
        model: root.__isKey ? root.__keys.map(function(key) { return key.key })
                            : [root.__types[Math.max(0, _type.currentIndex)].text]
    }
    CompactComboBox {
        id: _operator
        Accessible.name: qsTr("Comparison")
        objectName: "queryOperator"
        width: Units.dp(32)
        model: root.__code === "HA" || root.__code === "QA" ? ["=", "!="] : ["=", "!=", "<", "<=", ">", ">="]
    }
    ArrowComboBox {
        id: _value
        objectName: "queryValue"
        width: Math.max(Units.dp(60), root.__flexible * 0.55)
        editable: root.__isKey || root.__code === "HD" || root.__code === "QD"
        tooltip: qsTr("Select or input value...")
        model: root.__values.map(function(entry) { return entry.text })
        onModelChanged: {
            currentIndex = 0
            if (editable && count === 0)
                editText = ""
        }
    }
    CompactComboBox {
        id: _junction
        Accessible.name: qsTr("And, or")
        objectName: "queryJunction"
        width: Units.dp(36)
        // The last row keeps its place free.
        opacity: root.isLast ? 0 : 1
        enabled: !root.isLast
        model: [" AND", " OR"]
    }
    IconButton {
        objectName: "removeCriterion"
        anchors.verticalCenter: parent.verticalCenter
        opacity: root.removable ? 1 : 0
        enabled: root.removable
        icon: "close"
        iconSize: Units.dp(18)
        tooltip: qsTr("Remove this criterion.")
        onClicked: root.removeRequested()
    }
    IconButton {
        objectName: "addCriterion"
        anchors.verticalCenter: parent.verticalCenter
        opacity: root.addable ? 1 : 0
        enabled: root.addable
        icon: "add"
        iconSize: Units.dp(18)
        tooltip: qsTr("Add another criterion.")
        onClicked: root.addRequested()
    }

    // What the two wide boxes share.
    readonly property real __flexible: width - Units.dp(2 + 44 + 32 + 36 + 18 + 18) - 7 * spacing
}
