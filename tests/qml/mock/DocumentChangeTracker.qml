import QtQuick 2.15

QtObject {
    property Item target
    property QtObject undoManager
}
