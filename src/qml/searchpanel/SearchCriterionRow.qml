import QtQuick 2.15
import "../Components"

// One of the other criteria: what is asked for, how it is compared and with what.
Row {
    id: root

    // Entries of `text` and, for a key, its id as `keyId`; the first four are fixed.
    property var properties: []
    // By the fixed property's index: entries of `text` and `value`.
    property var fixedValues: [[], [], [], []]

    readonly property alias property: _property
    readonly property alias comparison: _operator
    readonly property alias value: _value
    readonly property int predefinedKeysCount: 4
    readonly property bool isKey: _property.currentIndex >= predefinedKeysCount
    property var __values: [{ text: "", value: "" }]

    signal changed()

    spacing: Units.dp(4)

    function clear() {
        _property.currentIndex = 0
        _operator.currentIndex = 0
        __readValues()
    }

    // Null for a row that asks for nothing.
    function serialize() {
        var index = _property.currentIndex
        if (index < 1)
            return null
        var chosen = __values[_value.currentIndex]
        return {
            author: index === 1, kerno: index === 2, kernoGroup: index === 3,
            property: isKey ? properties[index].keyId : null,
            value: chosen ? chosen.value : "",
            operator: _operator.currentText
        }
    }

    function restore(criterion) {
        if (!criterion) {
            clear()
            return
        }
        _property.currentIndex = Math.max(0, criterion.author ? 1 : criterion.kerno ? 2 : criterion.kernoGroup ? 3
                                             : __indexOf(properties, "keyId", criterion.property))
        __readValues()
        _operator.currentIndex = Math.max(0, _operator.find(criterion.operator))
        _value.currentIndex = Math.max(0, __indexOf(__values, "value", criterion.value))
    }

    // Reads the lists anew, and keeps what is chosen where it is still there.
    function refresh(newProperties, newFixedValues) {
        var chosen = serialize()
        properties = newProperties
        fixedValues = newFixedValues
        restore(chosen)
    }

    function __indexOf(list, name, value) {
        for (var i = 0; i < list.length; ++i) {
            if (list[i][name] === value)
                return i
        }
        return -1
    }

    function __readValues() {
        if (isKey) {
            __values = krnFile.metadataValues(properties[_property.currentIndex].keyId).map(function(item) {
                return { text: String(item.value), value: item.value }
            })
        } else {
            __values = fixedValues[Math.max(0, _property.currentIndex)]
        }
        _value.currentIndex = 0
    }

    ArrowComboBox {
        id: _property
        Accessible.name: qsTr("Property")
        objectName: "criterionProperty"
        width: (root.width - 2 * root.spacing - _operator.width) / 2
        model: root.properties.map(function(entry) { return entry.text })
        onActivated: {
            // Announced before the index has changed.
            currentIndex = index
            root.__readValues()
            root.changed()
        }
    }
    ArrowComboBox {
        id: _operator
        Accessible.name: qsTr("Comparison")
        objectName: "criterionOperator"
        width: Units.dp(52)
        model: root.isKey ? ["=", "!=", ">", ">=", "<", "<="] : ["=", "!="]
        onActivated: root.changed()
    }
    ArrowComboBox {
        id: _value
        Accessible.name: qsTr("Value")
        objectName: "criterionValue"
        width: _property.width
        model: root.__values.map(function(entry) { return entry.text })
        onActivated: root.changed()
    }
}
