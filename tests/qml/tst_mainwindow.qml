import QtQuick 2.15
import QtTest 1.15
import "qrc:/qml/Components"

// The main window as a whole: it loads, and a person comes from the login to a coded passage.
TestCase {
    id: test
    name: "MainWindow"
    when: windowShown

    property var root: null
    property var window: null

    function initTestCase() {
        var component = Qt.createComponent("qrc:/qml/main.qml")
        compare(component.status, Component.Ready, component.errorString())
        root = component.createObject(null)
        window = root.mainWindow
        window.show()
        tryCompare(window, "visible", true)
    }

    function cleanupTestCase() {
        root.destroy()
    }

    function grab(name) {
        wait(350)
        window.contentItem.grabToImage(function(result) {
            result.saveToFile("%1/%2.png".arg(screenshots).arg(name))
            test.grabbed = name
        })
        tryCompare(test, "grabbed", name)
    }
    property string grabbed

    function test_shots() {
        grab("login")
    }
}
