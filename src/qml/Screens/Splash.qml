import QtQuick 2.15
import QtQuick.Window 2.15

// The picture that stands on the screen while the main window gets ready.
Window {
    id: root

    property int timeoutInterval: 2000

    signal timeout()

    color: "transparent"
    modality: Qt.ApplicationModal
    flags: Qt.SplashScreen
    width: _image.width
    height: _image.height
    x: Screen.virtualX + (Screen.width - width) / 2
    y: Screen.virtualY + (Screen.height - height) / 2
    visible: true

    Image {
        id: _image
        width: implicitWidth / 2
        height: implicitHeight / 2
        source: "qrc:///qml/images/splash.png"
        mipmap: true
    }

    Timer {
        interval: root.timeoutInterval
        running: true
        onTriggered: {
            root.hide()
            root.timeout()
        }
    }
}
