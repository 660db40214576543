import QtQuick 2.15
import "../../Components"

// The rows of one query.
Column {
    id: root

    property var lookups: null
    property alias caption: _caption.text
    readonly property int maxRows: 10
    // In their order of creation.
    property var allItems: []

    spacing: Units.dp(4)

    function serialize() {
        return allItems.map(function(row) { return row.serializeQuery() })
    }

    ListModel {
        id: _model
        ListElement { row: 0 }
    }

    PlainText {
        id: _caption
        color: ApplicationStyle.default_text_color
        font { pixelSize: ApplicationStyle.label_font_size; bold: true }
    }

    Repeater {
        model: _model
        onItemAdded: root.allItems = root.allItems.concat([item])
        onItemRemoved: root.allItems = root.allItems.filter(function(other) { return other !== item })

        QueryCriterionDelegate {
            width: root.width
            lookups: root.lookups
            isLast: index === _model.count - 1
            removable: _model.count > 1
            addable: _model.count < root.maxRows
            onAddRequested: _model.insert(index + 1, { row: 0 })
            onRemoveRequested: _model.remove(index)
        }
    }
}
