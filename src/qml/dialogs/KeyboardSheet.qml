import QtQuick 2.15
import QtQuick.Layouts 1.15
import "../Components"

// What the keys do.
DialogPanel {
    id: root

    readonly property var __sheet: [
        [qsTr("Everywhere"), [
            [qsTr("Tab, Shift+Tab"), qsTr("To the next control, and back")],
            [qsTr("F6, Shift+F6"), qsTr("To the next part of the window, and back")],
            [qsTr("Return, Space"), qsTr("Press a button; choose in a list")],
            [qsTr("Arrows"), qsTr("Through menus, lists, bubbles and labels")],
            [qsTr("Menu, Shift+F10"), qsTr("The menu of what has the keyboard")],
            [qsTr("Ctrl+Z, Ctrl+Y"), qsTr("Undo and redo")],
            [qsTr("Esc"), qsTr("Close a dialog or a menu; leave a memo")],
            [qsTr("F1"), qsTr("This sheet")]
        ]],
        [qsTr("In the text"), [
            [qsTr("Shift+Arrows"), qsTr("Select; with Ctrl by words")],
            [qsTr("Ctrl+K"), qsTr("Code the selection with a kerno")],
            [qsTr("0 to 9, A to Z"), qsTr("Code it with the kerno of that key")],
            [qsTr("Ctrl+M"), qsTr("Write a memo on the selection")],
            [qsTr("Ctrl+C"), qsTr("Copy the selection with its source")],
            [qsTr("Ctrl+F, F3"), qsTr("Find words; the next place")],
            [qsTr("Page Up, Page Down"), qsTr("Leaf through the text")]
        ]],
        [qsTr("In \"Code with...\""), [
            [qsTr("Letters, Up, Down"), qsTr("Find a kerno by its title")],
            [qsTr("Return"), qsTr("Code with the chosen kerno")],
            [qsTr("Ctrl+N"), qsTr("Code into a new kerno")]
        ]],
        [qsTr("On the codings and memos beside the text"), [
            [qsTr("Arrows"), qsTr("To the next one")],
            [qsTr("Delete"), qsTr("Remove it")],
            [qsTr("Return"), qsTr("Write in the memo")],
            [qsTr("Esc"), qsTr("Back to the text")]
        ]],
        [qsTr("On the canvas"), [
            [qsTr("Arrows"), qsTr("To the next bubble; with Ctrl, move it")],
            [qsTr("Return"), qsTr("Overview of the kerno")],
            [qsTr("F2"), qsTr("Change its title in the quick edit bar")]
        ]],
        [qsTr("In the tree"), [
            [qsTr("Ctrl+X, Ctrl+V"), qsTr("Put a kerno below another")],
            [qsTr("Backspace"), qsTr("Take it out to the top")]
        ]]
    ]

    heading: qsTr("Keyboard Shortcuts")
    implicitWidth: Units.dp(860)

    Keys.onEscapePressed: dialogBase.close()

    GridLayout {
        columns: 2
        columnSpacing: 2 * ApplicationStyle.default_dialog_margin
        rowSpacing: ApplicationStyle.default_dialog_margin

        Repeater {
            model: root.__sheet

            Column {
                Layout.alignment: Qt.AlignTop
                Layout.fillWidth: true
                spacing: Units.dp(5)

                DialogLabel { text: modelData[0]; font.bold: true }

                Repeater {
                    model: modelData[1]

                    Row {
                        Accessible.role: Accessible.StaticText
                        Accessible.name: modelData.join(": ")
                        spacing: ApplicationStyle.default_margin

                        PlainText {
                            width: Units.dp(136)
                            text: modelData[0]
                            color: ApplicationStyle.dialog_text_color_alternative
                            font { pixelSize: ApplicationStyle.dialog_text_font_size_small; bold: true }
                        }
                        PlainText {
                            text: modelData[1]
                            color: ApplicationStyle.dialog_text_color_alternative
                            font.pixelSize: ApplicationStyle.dialog_text_font_size_small
                        }
                    }
                }
            }
        }
    }

    RowLayout {
        Layout.topMargin: ApplicationStyle.default_margin
        Item { Layout.fillWidth: true }
        StyledButton { primary: true; focus: true; text: qsTr("OK"); onClicked: root.dialogBase.close() }
    }
}
