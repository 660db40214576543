import QtQuick 2.15
import QtQuick.Controls 1.4
import "../Components"

// The synonyms of the term, to be ticked.
Rectangle {
    id: root

    property bool active: false
    // Maps with `synonym` and `category`.
    property var synonyms: []
    property var selectedSynonyms: []

    radius: Units.dp(6)
    color: ApplicationStyle.canvas_background_color
    border { width: 1; color: ApplicationStyle.border_color }

    function setSelected(synonym, selected) {
        var others = selectedSynonyms.filter(function(word) { return word !== synonym })
        selectedSynonyms = selected ? others.concat([synonym]) : others
    }

    StyledScrollView {
        anchors { fill: parent; margins: Units.dp(4) }
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff

        ListView {
            id: _list
            objectName: "synonymsList"
            model: root.synonyms
            boundsBehavior: Flickable.StopAtBounds
            spacing: Units.dp(2)
            delegate: Item {
                id: _row

                readonly property string synonym: modelData.synonym
                readonly property bool ticked: _switch.checked

                width: _list.width
                height: Units.dp(30)

                Switch {
                    id: _switch
                    objectName: "synonymSwitch"
                    x: Units.dp(4)
                    anchors.verticalCenter: parent.verticalCenter
                    style: ApplicationStyle.switch_style
                    checked: root.selectedSynonyms.indexOf(_row.synonym) >= 0
                    Accessible.name: _row.synonym
                    onClicked: root.setSelected(_row.synonym, checked)
                }
                PlainText {
                    id: _category
                    anchors { left: _switch.right; leftMargin: Units.dp(8); verticalCenter: parent.verticalCenter }
                    text: "(" + modelData.category + ")"
                    color: ApplicationStyle.orange_text_color
                    font.pixelSize: ApplicationStyle.label_font_size
                }
                PlainText {
                    anchors { left: _category.right; leftMargin: Units.dp(6); right: parent.right }
                    anchors.verticalCenter: parent.verticalCenter
                    text: _row.synonym
                    elide: Text.ElideRight
                    color: ApplicationStyle.source_text_color
                    font.pixelSize: ApplicationStyle.label_font_size
                }
            }
        }
    }

    PlainText {
        anchors.centerIn: parent
        visible: !root.active || _list.count === 0
        text: root.active ? qsTr("No Synonyms Available") : qsTr("Synonyms Disabled")
        color: ApplicationStyle.source_text_color
        opacity: 0.75
        font.pixelSize: ApplicationStyle.label_font_size
    }
}
