import QtQuick 2.15

// A text of our own with marks in it. What a person has written goes in by Utils.escaped() only.
Text {
    readonly property bool isMarkedUp: true

    textFormat: Text.StyledText
}
