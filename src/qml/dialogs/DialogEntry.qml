import QtQuick 2.15
import "../Components"

// One dialog of a chain: the flag of CentralManager that asks for it, the value that the flag has at rest, and what it
// shows. Closing the dialog resets the flag.
QtObject {
    property string flag
    property var rest: false
    property bool held: false
    property bool wanted: {
        var value = flag ? CentralManager[flag] : rest
        return !held && (typeof value === "number" ? value > 0 : value !== rest)
    }
    default property Component implementation

    signal closed()

    onClosed: {
        if (flag)
            CentralManager[flag] = rest
    }
}
