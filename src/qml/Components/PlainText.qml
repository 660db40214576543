import QtQuick 2.15

// Text as it stands. What a person has written is shown by this or by PlainTextEdit, so that nothing in it counts as
// mark-up.
Text {
    textFormat: Text.PlainText
}
