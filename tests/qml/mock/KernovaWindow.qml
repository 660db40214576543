import QtQuick 2.15
import QtQuick.Window 2.15

Window {
    property bool isResizing: false

    signal windowClosing(var close)

    onClosing: windowClosing(close)
}
