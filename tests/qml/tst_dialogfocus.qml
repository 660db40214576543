import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtTest 1.15
import "qrc:/qml/Components"
import "qrc:/qml/dialogs"

// The keyboard stays in a dialog, and comes back from it.
Item {
    id: test
    width: 900
    height: 700

    property bool open: false
    property bool openAbove: false

    StyledTextField { id: before }

    Loader {
        id: loader
        anchors.fill: parent
        active: test.open
        sourceComponent: DialogBase {
            implementation: DialogPanel {
                heading: "Lower"
                StyledTextField { objectName: "first"; focus: true }
                StyledTextField { objectName: "second" }
                StyledButton { objectName: "third"; text: "OK" }
            }
        }
    }

    Loader {
        id: above
        anchors.fill: parent
        active: test.openAbove
        sourceComponent: DialogBase {
            implementation: DialogPanel {
                heading: "Upper"
                StyledTextField { objectName: "upper"; focus: true }
            }
        }
    }

    StyledTextField { id: after; y: 50 }

    TestCase {
        name: "DialogFocus"
        when: windowShown

        function init() {
            before.forceActiveFocus()
            test.open = true
            // What can't be seen yet takes no focus.
            tryVerify(function() { return loader.item.opacity === 1 && hasFocus("first") })
        }

        function cleanup() {
            test.openAbove = false
            test.open = false
            wait(0)
        }

        function hasFocus(name) {
            var item = findChild(loader.item, name) || findChild(above.item, name)
            return !!item && item.activeFocus
        }

        function test_theTabGoesRound_data() {
            return [{ key: Qt.Key_Tab, modifiers: Qt.NoModifier, names: ["second", "third", "first", "second"] },
                    { key: Qt.Key_Backtab, modifiers: Qt.ShiftModifier, names: ["third", "second", "first", "third"] }]
        }
        function test_theTabGoesRound(data) {
            data.names.forEach(function(name) {
                keyClick(data.key, data.modifiers)
                tryVerify(function() { return hasFocus(name) }, 1000, name)
            })
        }

        function test_aDialogAboveKeepsItsFocus() {
            test.openAbove = true
            tryVerify(function() { return above.item.opacity === 1 && hasFocus("upper") })
            keyClick(Qt.Key_Tab)
            tryVerify(function() { return hasFocus("upper") })
            above.item.close()
            tryVerify(function() { return hasFocus("first") })
        }

        function test_theFocusComesBack() {
            loader.item.close()
            tryCompare(before, "activeFocus", true)
        }
    }
}
