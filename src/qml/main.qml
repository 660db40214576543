import QtQuick 2.15
import "Screens"
import "Screens/MainScreen"

QtObject {
    property MainWindow mainWindow: MainWindow {}

    property Splash splash: Splash {
        onTimeout: {
            mainWindow.show()
            hide()
        }
    }
}
