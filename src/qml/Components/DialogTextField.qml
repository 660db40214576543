import QtQuick 2.15
import "."

// A text field of a dialog; Return asks for what the dialog does.
StyledTextField {
    clearIfWhitespaceOnlyOnEditingFinished: true
}
